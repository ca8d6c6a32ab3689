#include "shell/tour/person.h"

#include "library/frame/host_contracts.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QWidget>

namespace ebtq::shell {

namespace {

constexpr int patience = 10'000; // milliseconds
constexpr int glance = 10;

void deliver(QWidget &receiver, QEvent *event)
{
    QCoreApplication::postEvent(&receiver, event);
    QCoreApplication::processEvents();
}

QWidget &keyboardOwner(QWidget &window)
{
    QWidget *popup = QApplication::activePopupWidget();
    QWidget *top = popup ? popup : &window;
    if (QWidget *owner = top->focusWidget())
        return *owner;
    return *top;
}

} // namespace

Person::Person(QWidget &window)
    : m_window(window)
{
    m_window.activateWindow();
    waitFor([this] { return m_window.isActiveWindow(); }, QStringLiteral("主窗口"));
}

QWidget &Person::find(const QString &objectName) const
{
    for (QWidget *each : m_window.findChildren<QWidget *>(objectName))
        if (each->isVisible())
            return *each;
    throw Failure(QStringLiteral("看不到控件“%1”").arg(objectName));
}

void Person::wrongKind(const QString &objectName)
{
    throw Failure(QStringLiteral("控件“%1”不是预期的种类").arg(objectName));
}

void Person::click(const QString &objectName)
{
    QWidget &widget = find(objectName);
    const QPointF place(widget.height() / 2.0, widget.height() / 2.0); // where a tick box has its box, too
    const QPointF onScreen = widget.mapToGlobal(place);
    deliver(widget, new QMouseEvent(QEvent::MouseButtonPress, place, onScreen, Qt::LeftButton, Qt::LeftButton,
                                    Qt::NoModifier));
    deliver(widget, new QMouseEvent(QEvent::MouseButtonRelease, place, onScreen, Qt::LeftButton, Qt::NoButton,
                                    Qt::NoModifier));
}

void Person::focus(const QString &objectName)
{
    find(objectName).setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
}

void Person::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget &owner = keyboardOwner(m_window);
    deliver(owner, new QKeyEvent(QEvent::KeyPress, key, modifiers));
}

void Person::type(const QString &text)
{
    for (const QChar letter : text)
        deliver(keyboardOwner(m_window),
                new QKeyEvent(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, letter));
}

void Person::withPopup(const std::function<void()> &opens, const std::function<void()> &inside)
{
    m_popupSeen = false;
    m_failureInside = nullptr;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        watch.stop();
        watchForPopup(inside);
        if (!m_popupSeen)
            watch.start();
    });
    watch.start(glance);
    opens();
    if (!m_popupSeen)
        waitFor([this] { return m_popupSeen; }, QStringLiteral("弹出的窗口"));
    if (m_failureInside)
        std::rethrow_exception(m_failureInside);
    waitFor([] { return !QApplication::activePopupWidget(); }, QStringLiteral("弹出的窗口关闭"));
}

void Person::watchForPopup(const std::function<void()> &inside)
{
    QWidget *popup = QApplication::activePopupWidget();
    if (!popup)
        return;
    m_popupSeen = true;
    try {
        inside();
    } catch (...) {
        m_failureInside = std::current_exception();
        popup->close();
    }
}

void Person::waitFor(const std::function<bool()> &condition, const QString &what)
{
    QElapsedTimer waited;
    waited.start();
    while (!condition()) {
        if (waited.hasExpired(patience))
            throw Failure(QStringLiteral("等不到：%1").arg(what));
        QCoreApplication::processEvents(QEventLoop::AllEvents, glance);
    }
    QCoreApplication::processEvents();
}

QPixmap Person::picture() const
{
    QPixmap result = m_window.grab();
    if (QWidget *popup = QApplication::activePopupWidget()) {
        QPainter painter(&result);
        painter.drawPixmap(m_window.mapFromGlobal(popup->pos()), popup->grab());
    }
    return result;
}

} // namespace ebtq::shell
