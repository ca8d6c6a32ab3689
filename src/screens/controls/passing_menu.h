#pragma once

#include <QMenu>

namespace ebtq {

/// A menu for one use, deleted when it closes. The chosen action runs after that: it may open dialogs, and
/// their event loops must not run inside the mouse handler of a menu that is being deleted.
class PassingMenu : public QMenu
{
    Q_OBJECT

public:
    explicit PassingMenu(QWidget *owner);

    template<class Receiver, class Slot>
    QAction *offer(const QIcon &icon, const QString &text, Receiver *receiver, Slot slot)
    {
        QAction *action = addAction(icon, text);
        connect(action, &QAction::triggered, receiver, slot, Qt::QueuedConnection);
        return action;
    }
    template<class Receiver, class Slot> QAction *offer(const QString &text, Receiver *receiver, Slot slot)
    {
        return offer(QIcon(), text, receiver, slot);
    }
};

} // namespace ebtq
