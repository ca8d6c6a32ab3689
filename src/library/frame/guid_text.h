#pragma once

#include <QString>

namespace ebtq {

class Desktop;

/// A new record key: 36 characters, hexadecimal digits in upper case and "-", the bytes of a new GUID in
/// memory order, without braces. Without a GUID a message box says so, and the text is empty.
[[nodiscard]] QString NewGuidText(Desktop &desktop);

} // namespace ebtq
