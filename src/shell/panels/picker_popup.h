#pragma once

#include "shell/panels/popup.h"

class QSizeGrip;

namespace ebtq::shell {

/// The popup of a picker of the component library: its screen and a grip to size it by. Escape and a press
/// outside leave it.
class PickerPopup : public Popup
{
    Q_OBJECT

public:
    /// `size` is the one it had before; an invalid one means the screen's size hint.
    explicit PickerPopup(const QSize &size);
    /// The picker's screen, made as a child of the popup.
    void setView(QWidget &view);
    /// Ends with a choice.
    void choose();
    [[nodiscard]] bool isChosen() const { return m_isChosen; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QSize m_size;
    QSizeGrip *m_grip;
    bool m_isChosen = false;
};

} // namespace ebtq::shell
