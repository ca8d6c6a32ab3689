#include "shell/panels/popup.h"

#include "screens/look/window_below.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QLayout>
#include <QScreen>

namespace ebtq::shell {

namespace {

/// Height of the field at whose lower left corner a panel is to open: it has the keyboard. 0 when the
/// corner differs.
int heightOfFieldAt(const QPoint &corner)
{
    const QWidget *field = QApplication::focusWidget();
    return field && field->mapToGlobal(QPoint(0, field->height())) == corner ? field->height() : 0;
}

QRect areaAt(const QPoint &corner)
{
    const QScreen *screen = QGuiApplication::screenAt(corner);
    return (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
}

QPoint onScreen(const QPoint &corner, const QSize &size)
{
    const QRect area = areaAt(corner);
    QPoint result = corner;
    if (corner.y() + size.height() > area.bottom() + 1)
        result.setY(corner.y() - heightOfFieldAt(corner) - size.height());
    result.setX(std::clamp(result.x(), area.left(), std::max(area.left(), area.right() + 1 - size.width())));
    result.setY(std::clamp(result.y(), area.top(), std::max(area.top(), area.bottom() + 1 - size.height())));
    return result;
}

} // namespace

Popup::Popup()
    : QFrame(look::windowBelow(), Qt::Popup)
{
    setProperty("kind", QStringLiteral("panel"));
}

void Popup::showAndWait(const QPoint &corner)
{
    QEventLoop loop;
    m_wait = &loop;
    m_dialogBelow = QApplication::activeModalWidget();
    if (m_dialogBelow)
        m_dialogBelow->installEventFilter(this);
    ensurePolished(); // the style sheet decides on the sizes
    layout()->activate();
    const QSize size = sizeHint().expandedTo(minimumSizeHint()).boundedTo(areaAt(corner).size());
    setGeometry(QRect(onScreen(corner, size), size));
    show();
    loop.exec();
    m_wait = nullptr;
}

void Popup::hideEvent(QHideEvent *event)
{
    QFrame::hideEvent(event);
    if (m_wait && !m_isClosed)
        m_wait->quit();
}

/// Qt hides a popup at a press outside and also before a dialog opens; which of the two is known only later.
void Popup::closeEvent(QCloseEvent *event)
{
    QFrame::closeEvent(event);
    m_isClosed = true;
    QMetaObject::invokeMethod(this, &Popup::endUnlessAside, Qt::QueuedConnection);
}

void Popup::endUnlessAside()
{
    m_isClosed = false;
    QWidget *dialog = QApplication::activeModalWidget();
    if (dialog && dialog != m_dialogBelow)
        dialog->installEventFilter(this);
    else if (m_wait)
        m_wait->quit();
}

bool Popup::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Hide || !m_wait)
        return QFrame::eventFilter(watched, event);
    if (watched == m_dialogBelow)
        m_wait->quit();
    else if (static_cast<QWidget *>(watched)->isModal())
        QMetaObject::invokeMethod(this, &QWidget::show, Qt::QueuedConnection);
    return QFrame::eventFilter(watched, event);
}

} // namespace ebtq::shell
