#include "shell/panels/popup.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QLayout>
#include <QScreen>

namespace ebtq::shell {

namespace {

/// Height of the field at whose lower left corner a panel is to open: it has the keyboard. 0 when the corner
/// is another one.
int heightOfFieldAt(const QPoint &corner)
{
    const QWidget *field = QApplication::focusWidget();
    return field && field->mapToGlobal(QPoint(0, field->height())) == corner ? field->height() : 0;
}

QPoint onScreen(const QPoint &corner, const QSize &size)
{
    const QScreen *screen = QGuiApplication::screenAt(corner);
    const QRect area = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    QPoint result = corner;
    if (corner.y() + size.height() > area.bottom() + 1)
        result.setY(corner.y() - heightOfFieldAt(corner) - size.height());
    result.setX(std::clamp(result.x(), area.left(), std::max(area.left(), area.right() + 1 - size.width())));
    result.setY(std::clamp(result.y(), area.top(), std::max(area.top(), area.bottom() + 1 - size.height())));
    return result;
}

/// Ends a wait when the watched widget is hidden, however that comes about.
class HideWatcher : public QObject
{
public:
    explicit HideWatcher(QEventLoop &loop)
        : m_loop(loop)
    {}
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Hide)
            m_loop.quit();
        return false;
    }

private:
    QEventLoop &m_loop;
};

} // namespace

Popup::Popup()
    : QFrame(QApplication::activeWindow(), Qt::Popup)
{
    setProperty("kind", QStringLiteral("panel"));
}

void Popup::showAndWait(const QPoint &corner)
{
    QEventLoop loop;
    HideWatcher watcher(loop);
    installEventFilter(&watcher);
    ensurePolished(); // the style sheet decides on the sizes
    layout()->activate();
    const QSize size = sizeHint().expandedTo(minimumSizeHint());
    setGeometry(QRect(onScreen(corner, size), size));
    show();
    loop.exec();
}

} // namespace ebtq::shell
