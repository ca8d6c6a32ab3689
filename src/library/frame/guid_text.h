#pragma once

#include <QString>

namespace ebtq {

class Desktop;

/// A new record key: 36 characters, hexadecimal digits in upper case and "-", the bytes of a new GUID in the
/// order in which they stand in memory, without braces. When the machine gives none it says so in a message
/// box, and the text is empty.
[[nodiscard]] QString NewGuidText(Desktop &desktop);

} // namespace ebtq
