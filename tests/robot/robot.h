#pragma once

#include <QDeadlineTimer>
#include <QFile>
#include <QObject>
#include <QPointer>
#include <QRandomGenerator>

class QFileDialog;
class QMessageBox;
class QWidget;

namespace ebtq::robot {

/// What the robot writes when it has agreed to a deletion: rows may be gone afterwards.
inline constexpr char confirmedDeletion[] = "confirmed a deletion";

/// A person who does anything: presses, turns, drags, types and pastes at random in whatever is on top. Each
/// action is written to `log` before it is done, so that the last line names the one that brought the program
/// down.
class Robot : public QObject
{
    Q_OBJECT

public:
    Robot(quint32 seed, int seconds, QWidget &window, const QString &log);
    /// Works until its time is over or the window is closed; the event loop's result.
    int work();

private:
    void step();
    void act(QWidget &top);
    void leaveFileDialog(QFileDialog &dialog);
    void watchDeletion(QMessageBox &box);

    void click(QWidget &top, Qt::MouseButton button);
    void doubleClick(QWidget &top);
    void drag(QWidget &top);
    void turnWheel(QWidget &top);
    void press(QWidget &top);
    void pressKey(QWidget &top, Qt::Key key, Qt::KeyboardModifiers held);
    void pressShortcut(QWidget &top);
    void type(QWidget &top);
    void paste(QWidget &top);
    void resize(QWidget &top);
    void close(QWidget &top);

    void note(const QString &action);
    [[nodiscard]] int below(int limit) { return static_cast<int>(m_random.bounded(limit)); }
    template<class List> [[nodiscard]] auto anyOf(const List &list)
    {
        return list[below(int(std::size(list)))];
    }
    /// Somewhere on something that can be seen, in the window's coordinates.
    [[nodiscard]] QPoint anyPlace(QWidget &top, const QString &action);
    [[nodiscard]] QString anyText();

    QRandomGenerator m_random;
    QDeadlineTimer m_end;
    QWidget &m_window;
    QFile m_log;
    QPointer<QMessageBox> m_watched;
    int m_busyLevel = 0; ///< of the event loop in which an action is under way
};

} // namespace ebtq::robot
