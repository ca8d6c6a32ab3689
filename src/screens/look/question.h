#pragma once

#include <QStringList>

#include <optional>

class QIcon;
class QMessageBox;

namespace ebtq::look {

/// In the size that message boxes have; an icon of the program's own follows the colours in force, also where
/// no icons are installed.
void showIcon(QMessageBox &box, const QIcon &icon);

/// A question with the given answers, to which "取消" is added, and Esc means it: the number of the chosen
/// answer, counted from 0; nothing when the box was left without one. Captions may have a mnemonic.
[[nodiscard]] std::optional<int> choose(const QString &text, const QString &title,
                                        const QStringList &answers);

} // namespace ebtq::look
