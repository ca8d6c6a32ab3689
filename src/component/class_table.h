#pragma once

#include <QLatin1String>
#include <QObject>

#include <memory>
#include <span>

namespace ebtq {

class Desktop;
class ViewRegistry;

/// A class that a host can make by name.
struct ComponentClass
{
    QLatin1String name;
    std::unique_ptr<QObject> (*make)(Desktop &desktop);
    void (*addView)(ViewRegistry &views);
};

[[nodiscard]] std::span<const ComponentClass> componentClasses();
/// Screens of the forms that modules open: no host makes those.
void addFormViews(ViewRegistry &views);

} // namespace ebtq
