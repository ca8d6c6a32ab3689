#pragma once

#include <QJsonObject>

#include <functional>
#include <string_view>
#include <vector>

namespace ebtq::bench {

/// One thing to be timed against others in the same run.
struct Contender
{
    const char *name;
    std::function<void()> run;
    std::function<void()> before = {}; ///< not timed
};

/// Runs all contenders in turn, `rounds` times over, so that whatever else the machine does falls on all of
/// them alike; the median time of each in milliseconds, in their order. The first round warms up and does not
/// count.
[[nodiscard]] std::vector<double> medians(const std::vector<Contender> &contenders, int rounds);

/// The same for work in several stretches, each run by all contenders before the next one begins: the medians
/// of each, summed up. A burst of other work then falls on few rounds of few stretches instead of on a whole
/// round of one contender.
[[nodiscard]] std::vector<double> sumsOfMedians(const std::vector<std::vector<Contender>> &stretches,
                                                int rounds);

/// To a thousandth: more digits would only be noise.
[[nodiscard]] double rounded(double figure);

/// One JSON line on standard output.
void print(const QJsonObject &figures);

/// Keeps a result from being optimised away.
void keep(size_t value);

} // namespace ebtq::bench
