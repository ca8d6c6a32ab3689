#include "screens/controls/whole_text.h"

#include <QTextDocument>
#include <QToolTip>

namespace ebtq {

void showWholeText(const QString &text, const QPoint &globalPlace, QWidget &widget, const QRect &area)
{
    const QString shown = Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
    QToolTip::showText(globalPlace, shown, &widget, area);
}

} // namespace ebtq
