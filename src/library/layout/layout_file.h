#pragma once

#include <QString>

class QObject;

namespace ebtq {

class HostApp;

/// Where the layout of a screen is kept: "<name>.txt" in the folder "selfbb" below the working folder, which
/// is made when it is missing. A folder that cannot be made shows when the file cannot be written.
[[nodiscard]] QString LayoutFile(const QString &name, HostApp &app);

/// A control's number in its control array; -1 for what is in none.
[[nodiscard]] int ControlIndex(const QObject &control);

} // namespace ebtq
