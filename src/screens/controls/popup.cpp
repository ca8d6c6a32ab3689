#include "screens/controls/popup.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace ebtq {

namespace {

QPoint cornerFor(const QSize &size, const QWidget &field)
{
    const QRect screen = field.screen()->availableGeometry();
    QPoint corner = field.mapToGlobal(QPoint(0, field.height()));
    if (corner.y() + size.height() > screen.bottom() + 1)
        corner.ry() = field.mapToGlobal(QPoint(0, 0)).y() - size.height();
    corner.rx() =
        std::clamp(corner.x(), screen.left(), std::max(screen.left(), screen.right() + 1 - size.width()));
    corner.ry() = std::max(corner.y(), screen.top());
    return corner;
}

} // namespace

void showPopupAt(QWidget &popup, const QWidget &field)
{
    popup.move(cornerFor(popup.size(), field));
    popup.show();
    popup.move(cornerFor(popup.size(), field)); // its style may have made it larger when it was shown
    popup.setFocus(Qt::PopupFocusReason);
}

} // namespace ebtq
