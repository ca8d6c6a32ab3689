#include "screens/look/question.h"

#include "screens/look/look.h"
#include "screens/look/window_below.h"

#include <QMessageBox>
#include <QPushButton>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace ebtq::look {

void showIcon(QMessageBox &box, const QIcon &icon)
{
    const int extent = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box);
    box.setIconPixmap(icon.pixmap(QSize(extent, extent), box.devicePixelRatioF()));
}

std::optional<int> choose(const QString &text, const QString &title, const QStringList &answers)
{
    QMessageBox box(QMessageBox::NoIcon, title, text, QMessageBox::NoButton, windowBelow());
    showIcon(box, icon(u"dialog-question"_s, &Tokens::brand));
    box.setTextFormat(Qt::PlainText);
    QList<QAbstractButton *> buttons;
    for (const QString &answer : answers)
        buttons.append(box.addButton(answer, QMessageBox::ActionRole));
    QPushButton *cancel = box.addButton(u"取消(&C)"_s, QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    runModal(box);
    const qsizetype chosen = buttons.indexOf(box.clickedButton());
    return chosen < 0 ? std::nullopt : std::optional(static_cast<int>(chosen));
}

} // namespace ebtq::look
