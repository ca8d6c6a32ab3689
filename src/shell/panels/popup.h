#pragma once

#include <QFrame>
#include <QPointer>

class QEventLoop;

namespace ebtq::shell {

/// A frame that pops up at a place of the screen, is moved to fit on it, and is waited for. Hiding it ends
/// the wait; while a dialog is open on top of it, it is only hidden.
class Popup : public QFrame
{
    Q_OBJECT

public:
    Popup();
    /// Shows the frame with its upper left corner there, or above the field when there is no room below it,
    /// and returns when it has been hidden again.
    void showAndWait(const QPoint &corner);
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void hideEvent(QHideEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void endUnlessAside();

    QEventLoop *m_wait = nullptr;
    QPointer<QWidget> m_dialogBelow; ///< the form whose field it was opened at
    bool m_isClosed = false;         ///< by Qt, and the reason is not known yet
};

} // namespace ebtq::shell
