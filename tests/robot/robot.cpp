#include "robot.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPrintDialog>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

namespace ebtq::robot {

namespace {

using namespace Qt::StringLiterals;

constexpr Qt::Key keys[] = {Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Up,
                            Qt::Key_Down, Qt::Key_Left,    Qt::Key_Right,  Qt::Key_PageUp, Qt::Key_PageDown,
                            Qt::Key_Home, Qt::Key_End,     Qt::Key_Delete, Qt::Key_Space,  Qt::Key_Backspace,
                            Qt::Key_Menu, Qt::Key_F1,      Qt::Key_F2,     Qt::Key_F3,     Qt::Key_F4,
                            Qt::Key_F5,   Qt::Key_F6,      Qt::Key_A,      Qt::Key_C,      Qt::Key_D,
                            Qt::Key_E,    Qt::Key_F,       Qt::Key_G,      Qt::Key_N,      Qt::Key_P,
                            Qt::Key_S,    Qt::Key_V,       Qt::Key_X,      Qt::Key_Z,      Qt::Key_1,
                            Qt::Key_2,    Qt::Key_3,       Qt::Key_4,      Qt::Key_5};
constexpr Qt::KeyboardModifiers modifiers[] = {
    Qt::NoModifier,      Qt::NoModifier,  Qt::NoModifier,    Qt::NoModifier,
    Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier, Qt::ControlModifier | Qt::ShiftModifier};

QWidget *topWidget(QWidget &window)
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup;
    QWidget *dialog = QApplication::activeModalWidget();
    return dialog ? dialog : &window;
}

QString nameOf(const QWidget &widget)
{
    return QString::fromLatin1(widget.metaObject()->className()) + u' ' + widget.objectName();
}

/// What a press or a drag does can make the window smaller.
QPoint inside(const QWindow &window, const QPoint &place)
{
    return {std::min(place.x(), window.width() - 1), std::min(place.y(), window.height() - 1)};
}

} // namespace

Robot::Robot(quint32 seed, int seconds, QWidget &window, const QString &log)
    : m_random(seed)
    , m_end(seconds * 1000)
    , m_window(window)
    , m_log(log)
{
    if (!m_log.open(QIODevice::WriteOnly))
        qFatal("no log: %s", qUtf8Printable(log));
}

int Robot::work()
{
    QTimer::singleShot(0, this, &Robot::step);
    return QApplication::exec();
}

/// The next step is asked for first: this one may wait in a dialog's event loop, in which the next ones are
/// done.
void Robot::step()
{
    if (m_end.hasExpired() || !m_window.isVisible()) {
        QApplication::exit(0);
        return;
    }
    QTimer::singleShot(1, this, &Robot::step);
    // An action lets pending events run, this one among them, and would never come to its end.
    const int level = QThread::currentThread()->loopLevel();
    if (m_busyLevel == level)
        return;
    const QScopedValueRollback busy(m_busyLevel, level);
    QWidget *top = topWidget(m_window);
    if (!top->windowHandle())
        return;
    if (auto *box = qobject_cast<QMessageBox *>(top))
        watchDeletion(*box);
    if (auto *files = qobject_cast<QFileDialog *>(top))
        leaveFileDialog(*files);
    else if (qobject_cast<QPrintDialog *>(top) || top->objectName() == u"SessionMenu") // it ends the session
        top->close();
    else
        act(*top);
}

void Robot::act(QWidget &top)
{
    const int choice = below(100);
    if (choice < 30)
        click(top, Qt::LeftButton);
    else if (choice < 36)
        click(top, Qt::RightButton);
    else if (choice < 41)
        doubleClick(top);
    else if (choice < 45)
        drag(top);
    else if (choice < 50)
        turnWheel(top);
    else if (choice < 75)
        press(top);
    else if (choice < 82)
        pressShortcut(top);
    else if (choice < 92)
        type(top);
    else if (choice < 96)
        paste(top);
    else if (choice < 98)
        resize(top);
    else
        close(top);
}

/// Files go into the robot's own folder and nowhere else.
void Robot::leaveFileDialog(QFileDialog &dialog)
{
    auto *name = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s);
    if (!name || below(2) == 0) {
        note(u"leave the file dialog"_s);
        dialog.reject();
        return;
    }
    note(u"save a file"_s);
    dialog.setDirectory(QDir::homePath());
    name->setText(u"文件%1"_s.arg(below(3)));
    QTest::keyClick(name, Qt::Key_Return);
}

void Robot::watchDeletion(QMessageBox &box)
{
    if (m_watched == &box || !box.text().contains(u"删除"))
        return;
    m_watched = &box;
    connect(&box, &QMessageBox::buttonClicked, this, [this](const QAbstractButton *button) {
        if (button->text().startsWith(u"是"))
            note(QString::fromLatin1(confirmedDeletion));
    });
}

// Actions

void Robot::click(QWidget &top, Qt::MouseButton button)
{
    const QPoint place = anyPlace(top, button == Qt::LeftButton ? u"click"_s : u"right click"_s);
    const QPointer<QWindow> window = top.windowHandle();
    QTest::mousePress(window, button, anyOf(modifiers), place);
    if (window) // it may be gone with what the press has done
        QTest::mouseRelease(window, button, {}, inside(*window, place));
}

void Robot::doubleClick(QWidget &top)
{
    const QPointer<QWindow> window = top.windowHandle();
    const QPoint place = anyPlace(top, u"double click"_s);
    for (int press = 0; press < 2 && window; ++press) {
        QTest::mousePress(window, Qt::LeftButton, {}, inside(*window, place), 0);
        if (window)
            QTest::mouseRelease(window, Qt::LeftButton, {}, inside(*window, place), 0);
    }
}

void Robot::drag(QWidget &top)
{
    const QPointer<QWindow> window = top.windowHandle();
    const QPoint from = anyPlace(top, u"drag from"_s);
    const QPoint to = anyPlace(top, u"drag to"_s);
    QTest::mousePress(window, Qt::LeftButton, {}, from);
    for (int part = 1; part <= 4 && window; ++part)
        QTest::mouseMove(window, inside(*window, from + (to - from) * part / 4));
    if (window)
        QTest::mouseRelease(window, Qt::LeftButton, {}, inside(*window, to));
}

void Robot::turnWheel(QWidget &top)
{
    const QPoint place = anyPlace(top, u"wheel"_s);
    const int turn = below(2) == 0 ? 120 : -120;
    QWidget *target = top.childAt(place);
    QWheelEvent event(place, top.mapToGlobal(place), {}, {0, turn}, {}, anyOf(modifiers), Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(target ? target : &top, &event);
}

void Robot::pressKey(QWidget &top, Qt::Key key, Qt::KeyboardModifiers held)
{
    // The press of Alt alone, which comes first, closes a menu: the key itself would go to a window that is
    // gone.
    if (qobject_cast<QMenu *>(&top))
        held = Qt::NoModifier;
    const QPointer<QWindow> window = top.windowHandle();
    QTest::keyPress(window, key, held);
    if (window)
        QTest::keyRelease(window, key, held);
}

void Robot::press(QWidget &top)
{
    const Qt::Key key = anyOf(keys);
    const Qt::KeyboardModifiers held = anyOf(modifiers);
    note(u"press "_s + QKeySequence(QKeyCombination(held, key)).toString());
    pressKey(top, key, held);
}

void Robot::pressShortcut(QWidget &top)
{
    QList<QKeySequence> sequences;
    for (const auto *shortcut : top.findChildren<QShortcut *>())
        sequences.append(shortcut->key());
    for (const auto *button : top.findChildren<QAbstractButton *>())
        sequences.append(button->shortcut());
    for (const auto *action : top.findChildren<QAction *>())
        sequences.append(action->shortcut());
    sequences.removeAll(QKeySequence());
    if (sequences.isEmpty())
        return;
    const QKeySequence sequence = anyOf(sequences);
    note(u"shortcut "_s + sequence.toString());
    pressKey(top, sequence[0].key(), sequence[0].keyboardModifiers());
}

void Robot::type(QWidget &top)
{
    const QString text = anyText().left(20);
    note(u"type "_s + text);
    QWidget *target = QApplication::focusWidget();
    QKeyEvent event(QEvent::KeyPress, 0, {}, text);
    QApplication::sendEvent(target && target->window() == &top ? target : &top, &event);
}

void Robot::paste(QWidget &top)
{
    const QString text = anyText();
    note(u"paste "_s + text.left(40));
    QApplication::clipboard()->setText(text);
    pressKey(top, Qt::Key_V, Qt::ControlModifier);
}

void Robot::resize(QWidget &top)
{
    const QSize size(200 + below(1800), 100 + below(1000));
    note(u"resize to %1x%2"_s.arg(size.width()).arg(size.height()));
    if (top.isWindow() && !(top.windowFlags() & Qt::Popup))
        top.resize(size);
}

/// The main window seldom, since that is the end.
void Robot::close(QWidget &top)
{
    if (&top == &m_window && below(40) != 0)
        return;
    note(u"close "_s + nameOf(top));
    top.close();
}

// What to act on

void Robot::note(const QString &action)
{
    m_log.write(action.toUtf8().replace('\n', ' ') + '\n');
    m_log.flush();
}

QPoint Robot::anyPlace(QWidget &top, const QString &action)
{
    QList<QWidget *> seen;
    for (QWidget *widget : top.findChildren<QWidget *>()) {
        if (widget->isVisible() && widget->window() == &top && !widget->visibleRegion().isEmpty())
            seen.append(widget);
    }
    QWidget *target = seen.isEmpty() ? &top : anyOf(seen);
    const QRect area = target->visibleRegion().boundingRect();
    const QPoint place =
        area.topLeft() + QPoint(below(std::max(1, area.width())), below(std::max(1, area.height())));
    note(u"%1 %2 (%3,%4)"_s.arg(action, nameOf(*target)).arg(place.x()).arg(place.y()));
    return target->mapTo(&top, place);
}

QString Robot::anyText()
{
    static const QString texts[] = {
        u"天河"_s,       u"翠堤雅居"_s, u"O'Neil"_s,    u"26abc"_s,
        u"１，２５０"_s, u"-3.5"_s,     u"1e12"_s,      u"2026-12-3"_s,
        u"2026-13-45"_s, u"99/99"_s,    u"%_[]#"_s,     u"'; drop table fyxx; --"_s,
        u"😀\u200b"_s,    u"\ufeff甲"_s, u"a\tb\r\nc"_s, u"有效"_s,
        u"出售"_s,       u"01"_s,       u"A3"_s};
    const int choice = below(int(std::size(texts)) + 2);
    if (choice == int(std::size(texts)))
        return QString(1 + below(100'000), u'长');
    return choice > int(std::size(texts)) ? QString() : texts[choice];
}

} // namespace ebtq::robot
