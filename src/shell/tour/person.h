#pragma once

#include <QEvent>
#include <QList>
#include <QPixmap>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <functional>

class QWidget;

namespace ebtq::shell {

/// Uses the desktop as a person would, through posted key and mouse events on its real widgets, which are
/// found by their object names; in an open form or message box alone, as long as there is one. What cannot be
/// done throws Failure with a text that says why, and so does a message box that nobody expects, with its
/// text.
class Person
{
public:
    explicit Person(QWidget &window);

    /// A widget that can be seen.
    template<class Widget = QWidget> [[nodiscard]] Widget &see(const QString &objectName) const
    {
        auto *widget = qobject_cast<Widget *>(&find(objectName));
        if (!widget)
            wrongKind(objectName);
        return *widget;
    }
    void click(const QString &objectName);
    void click(QWidget &widget, QPoint place);
    /// The mouse held down from one place to the other.
    void drag(QWidget &widget, QPoint from, QPoint to, const std::function<void()> &onTheWay);
    void focus(const QString &objectName);
    /// As by the keyboard's key for it.
    void askForMenu(const QString &objectName);
    /// Keys go to whatever has the keyboard, a pop-up first.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString &text);
    /// Types over what a field holds, and leaves it.
    void fill(const QString &objectName, const QString &text);
    /// Does `opens`, which pops something up and returns when that closed, and `inside` while it is open.
    void withPopup(const std::function<void()> &opens, const std::function<void()> &inside);
    /// The same for a form or a message box; one that is still open behind `inside` is closed, as a failure.
    void withDialog(const std::function<void()> &opens, const std::function<void()> &inside);
    /// Lets the program work until that is so; throws when it does not come to be within seconds.
    void waitFor(const std::function<bool()> &condition, const QString &what);
    /// The window as it stands on the screen, with forms, message boxes and a pop-up above it.
    [[nodiscard]] QPixmap picture() const;
    [[nodiscard]] QWidget &window() const { return m_window; }

private:
    [[nodiscard]] QWidget &find(const QString &objectName) const;
    [[noreturn]] static void wrongKind(const QString &objectName);
    using Current = QWidget *(*)();
    void withOpened(Current current, const QString &what, const std::function<void()> &opens,
                    const std::function<void()> &inside);

    void deliver(QWidget &receiver, QEvent *event);
    void deliverMouse(QWidget &receiver, QEvent::Type type, QPoint place, Qt::MouseButtons held);
    void watchForBoxes();

    QWidget &m_window;
    QTimer m_watch;
    QList<QPointer<QWidget>> m_expected; ///< windows that are being answered
    QPointer<QWidget> m_box;             ///< seen at the last look
    QString m_unforeseen;                ///< what a box said that was closed for want of an answer
};

} // namespace ebtq::shell
