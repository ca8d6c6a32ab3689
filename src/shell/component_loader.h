#pragma once

#include "component/component_library.h"

#include <QString>

namespace ebtq::shell {

/// Where the component library is looked for when the user names none: beside the program, then in the
/// folders of an installation.
[[nodiscard]] QStringList componentLibraryPlaces();

/// Loads the component library and keeps it loaded until the program ends. Throws Failure with a text for the
/// user when the file is missing, is no library or a different one.
[[nodiscard]] ComponentLibrary &loadComponentLibrary(const QStringList &places);

} // namespace ebtq::shell
