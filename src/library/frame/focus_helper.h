#pragma once

#include <QObject>

namespace ebtq {

class Control;

/// Moves the keyboard between the fields of a screen: what a field's Enter and arrow keys ask for, the view
/// does.
class FocusHelper : public QObject
{
    Q_OBJECT

public:
    enum KeyCode : int { KeyReturn = 13, KeyUp = 38, KeyDown = 40 };

    void SetFocus(Control &control) const;
    /// `keyCode` is the key that was pressed: `enterKey` and Down go to the next field, Up to the one before.
    /// Other keys stay with the field; Left and Right move in its text.
    void SendKey(int enterKey, int keyCode);

Q_SIGNALS:
    void moveRequested(bool forward);
};

} // namespace ebtq
