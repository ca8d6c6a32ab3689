#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

class QWidget;

namespace ebtq {

/// Shows a text whole that is cut in its place, until the mouse leaves `area` of the widget. The text is
/// shown as it is: what looks like markup in it is none.
void showWholeText(const QString &text, const QPoint &globalPlace, QWidget &widget, const QRect &area);

} // namespace ebtq
