#pragma once

#include <QString>

namespace ebtq::shell {

/// What a person reads of a message: without the names of the program's parts that modules put in front
/// ("Fcxx-->LoadData::") and without the place in the statement ("第 285 个字符处："). A title is shown
/// unless it is such a name.
[[nodiscard]] QString plainMessage(const QString &text, const QString &title);
/// All of it, as an administrator asks for it.
[[nodiscard]] QString wholeMessage(const QString &text, const QString &title);

} // namespace ebtq::shell
