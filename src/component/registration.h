#pragma once

#include <QString>

/// The file by which hosts find the library by name: its class names and where it lies, below the user's data
/// folder in ebtq/components.
namespace ebtq::registration {

[[nodiscard]] QString file();
/// False when the file could not be written; the one so far stays then.
[[nodiscard]] bool write();
/// True when there is no such file afterwards.
[[nodiscard]] bool remove();

} // namespace ebtq::registration
