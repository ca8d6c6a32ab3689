#pragma once

#include <QComboBox>

namespace ebtq {

class XPCombo;

/// The widget of an XPCombo: any text can be typed beside the listed ones, and nothing is completed or put
/// into the list on its own, since the rules compare the text letter by letter.
class ComboView : public QComboBox
{
    Q_OBJECT

public:
    ComboView(XPCombo &combo, QWidget *parent);

Q_SIGNALS:
    /// The user picked an entry, or pressed Enter on a typed text.
    void confirmed();

protected:
    /// The wheel scrolls what lies around; it never changes a text under the pointer.
    void wheelEvent(QWheelEvent *event) override;

private:
    void showText();

    XPCombo &m_combo;
};

} // namespace ebtq
