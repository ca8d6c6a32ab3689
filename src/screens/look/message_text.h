#pragma once

#include <QString>

namespace ebtq::look {

/// What a person reads of a message: without the module and operation that modules put in front
/// ("Fcxx-->LoadData::", "DoSave:") and without positions in a statement ("第 285 个字符处：").
[[nodiscard]] QString plainMessage(const QString &text);
/// The same with its title in front, unless the title is the name of a module.
[[nodiscard]] QString plainMessage(const QString &text, const QString &title);
/// All of it, as an administrator asks for it: for the tool tip, where it wraps and its markup stays text.
[[nodiscard]] QString messageToolTip(const QString &text, const QString &title);
/// Writes all of it into the program's log.
void logMessage(const QString &text, const QString &title);

} // namespace ebtq::look
