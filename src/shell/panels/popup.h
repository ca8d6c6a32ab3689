#pragma once

#include <QFrame>

namespace ebtq::shell {

/// A frame that pops up at a place of the screen, is moved so that it stays whole on it, and is waited for.
class Popup : public QFrame
{
    Q_OBJECT

public:
    Popup();
    /// Shows the frame with its upper left corner there, or above the field when there is no room below it,
    /// and returns when it was hidden again.
    void showAndWait(const QPoint &corner);
};

} // namespace ebtq::shell
