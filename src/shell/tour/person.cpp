#include "shell/tour/person.h"

#include "contracts/host_contracts.h"
#include "screens/look/look.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

#include <exception>
#include <utility>

namespace ebtq::shell {

namespace {

constexpr int patience = 10'000; // milliseconds
constexpr int glance = 10;
constexpr int boxPatience = 1'000; ///< an expected box is noticed within a glance
constexpr int titleHeight = 30;    // pixels
constexpr int titleMargin = 12;

/// What a person can reach: an open form or message box blocks what lies below.
QWidget &reachable(QWidget &window)
{
    QWidget *dialog = QApplication::activeModalWidget();
    return dialog ? *dialog : window;
}

QWidget &keyboardOwner(QWidget &window)
{
    QWidget *popup = QApplication::activePopupWidget();
    QWidget *top = popup ? popup : &reachable(window);
    if (QWidget *owner = top->focusWidget())
        return *owner;
    return *top;
}

/// A window with the frame and the title that a desktop would give it; a panel has a frame of its own.
void drawWindow(QPainter &painter, QPoint at, QWidget &window)
{
    if (window.windowType() != Qt::Popup) {
        const QRect frame = QRect(at, window.size()).adjusted(-1, -titleHeight, 0, 0);
        painter.setPen(look::tokens().muted);
        painter.setBrush(look::tokens().card);
        painter.drawRect(frame);
        painter.setPen(look::tokens().ink);
        const QString mark = window.isWindowModified() ? QStringLiteral("*") : QString();
        painter.drawText(frame.adjusted(titleMargin, 0, 0, -window.height()), Qt::AlignVCenter,
                         window.windowTitle().replace(QStringLiteral("[*]"), mark));
    }
    painter.drawPixmap(at, window.grab());
}

} // namespace

Person::Person(QWidget &window)
    : m_window(window)
{
    QObject::connect(&m_watch, &QTimer::timeout, &m_watch, [this] { watchForBoxes(); });
    m_watch.start(boxPatience);
    m_window.activateWindow();
    waitFor([this] { return m_window.isActiveWindow(); }, QStringLiteral("主窗口"));
}

QWidget &Person::find(const QString &objectName) const
{
    for (QWidget *each : reachable(m_window).findChildren<QWidget *>(objectName))
        if (each->isVisible())
            return *each;
    const auto *box = qobject_cast<const QMessageBox *>(&reachable(m_window));
    throw Failure(QStringLiteral("看不到控件“%1”").arg(objectName) +
                  (box ? QStringLiteral("，屏幕上的提示是：") + box->text() : QString()));
}

void Person::deliver(QWidget &receiver, QEvent *event)
{
    QCoreApplication::postEvent(&receiver, event);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents(); // what it has put off, such as the end of a cell's editor by Enter
    if (const QString text = std::exchange(m_unforeseen, {}); !text.isEmpty())
        throw Failure(QStringLiteral("没有料到的提示：") + text);
}

/// The action that has opened the box waits for an answer that no step gives.
void Person::watchForBoxes()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (box && box == m_box && !m_expected.contains(box)) {
        m_unforeseen = box->text();
        box->close();
    }
    m_box = box;
}

void Person::wrongKind(const QString &objectName)
{
    throw Failure(QStringLiteral("控件“%1”不是预期的种类").arg(objectName));
}

void Person::deliverMouse(QWidget &receiver, QEvent::Type type, QPoint place, Qt::MouseButtons held)
{
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    deliver(receiver,
            new QMouseEvent(type, place, receiver.mapToGlobal(QPointF(place)), button, held, Qt::NoModifier));
}

void Person::click(const QString &objectName)
{
    QWidget &widget = find(objectName);
    click(widget, {widget.height() / 2, widget.height() / 2}); // where a tick box has its box, too
}

void Person::click(QWidget &widget, QPoint place)
{
    deliverMouse(widget, QEvent::MouseButtonPress, place, Qt::LeftButton);
    deliverMouse(widget, QEvent::MouseButtonRelease, place, Qt::NoButton);
}

void Person::drag(QWidget &widget, QPoint from, QPoint to, const std::function<void()> &onTheWay)
{
    deliverMouse(widget, QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (const QPoint place : {(from + to) / 2, to})
        deliverMouse(widget, QEvent::MouseMove, place, Qt::LeftButton);
    onTheWay();
    deliverMouse(widget, QEvent::MouseButtonRelease, to, Qt::NoButton);
}

void Person::focus(const QString &objectName)
{
    find(objectName).setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
}

void Person::askForMenu(const QString &objectName)
{
    QWidget &widget = find(objectName);
    deliver(widget, new QContextMenuEvent(QContextMenuEvent::Keyboard, widget.rect().center(),
                                          widget.mapToGlobal(widget.rect().center())));
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

void Person::fill(const QString &objectName, const QString &text)
{
    focus(objectName);
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
    press(Qt::Key_Tab);
}

void Person::withPopup(const std::function<void()> &opens, const std::function<void()> &inside)
{
    withOpened(&QApplication::activePopupWidget, QStringLiteral("弹出的窗口"), opens, inside);
}

void Person::withDialog(const std::function<void()> &opens, const std::function<void()> &inside)
{
    withOpened(&QApplication::activeModalWidget, QStringLiteral("打开的窗口"), opens, inside);
}

void Person::withOpened(Current current, const QString &what, const std::function<void()> &opens,
                        const std::function<void()> &inside)
{
    const QWidget *before = current();
    bool seen = false;
    std::exception_ptr failure;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        const QPointer<QWidget> opened = current();
        if (!opened || opened == before || !opened->isVisible())
            return;
        watch.stop();
        seen = true;
        m_expected.append(opened);
        try {
            inside();
            waitFor([&] { return !opened || !opened->isVisible(); }, what + QStringLiteral("关闭"));
        } catch (...) {
            failure = std::current_exception();
            if (opened)
                opened->close();
        }
    });
    watch.start(glance);
    opens();
    if (!seen)
        waitFor([&] { return seen; }, what);
    if (failure)
        std::rethrow_exception(failure);
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
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // of what has just been hidden
    QPixmap result = m_window.grab();
    QList<QWidget *> above;
    for (QWidget *each = QApplication::activeModalWidget(); each && each != &m_window;
         each = each->parentWidget() ? each->parentWidget()->window() : nullptr)
        above.prepend(each);
    if (QWidget *popup = QApplication::activePopupWidget())
        above.append(popup);
    QPainter painter(&result);
    for (QWidget *each : above)
        drawWindow(painter, m_window.mapFromGlobal(each->pos()), *each);
    return result;
}

} // namespace ebtq::shell
