#include "screens/controls/field_error.h"

#include <QEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int widest = 360;
constexpr int gap = 2;

} // namespace

FieldError::FieldError(const QString &message, QWidget &field)
    : QLabel(message, field.window())
    , m_field(field)
{
    setObjectName(u"FieldError"_s);
    setProperty("kind", u"error"_s);
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    ensurePolished();
    if (sizeHint().width() > widest) {
        setWordWrap(true);
        setFixedWidth(widest);
    }
    adjustSize();
    placeBelow(field);
    show();
    raise();
    for (QWidget *moved = &field; moved; moved = moved->isWindow() ? nullptr : moved->parentWidget())
        moved->installEventFilter(this);
}

/// Any ancestor can move the field: a message that opens above the page moves only the page.
bool FieldError::eventFilter(QObject *watched, QEvent *event)
{
    if (!isHidden() && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        placeBelow(m_field);
    return QLabel::eventFilter(watched, event);
}

void FieldError::drop()
{
    setObjectName({});
    hide();
    deleteLater();
}

void FieldError::placeBelow(const QWidget &field)
{
    const QWidget *window = field.window();
    QPoint corner = field.mapTo(window, QPoint(0, field.height() + gap));
    if (corner.y() + height() > window->height())
        corner.ry() = field.mapTo(window, QPoint(0, 0)).y() - height() - gap;
    corner.rx() = std::max(0, std::min(corner.x(), window->width() - width()));
    move(corner);
}

} // namespace ebtq
