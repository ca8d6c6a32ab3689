#pragma once

#include <QStringView>

#include <vector>

namespace ebtq::shell {

class Tour;

/// What a person does, and what must then be shown.
struct TourStep
{
    QStringView name;
    QStringView picture; ///< in the name of the step's picture
    void (*act)(Tour &tour);
    void (*look)(Tour &tour); ///< throws Failure when something else is seen; notes what is seen
};

[[nodiscard]] std::vector<TourStep> tourSteps();

} // namespace ebtq::shell
