#pragma once

#include "screens/controls/exchange.h"

#include <QComboBox>

namespace ebtq {

class XPCombo;

/// The widget of an XPCombo: texts that are not listed can be typed too; nothing is completed or added to the
/// list, since the rules compare the exact text.
class ComboView : public QComboBox
{
    Q_OBJECT

public:
    ComboView(XPCombo &combo, QWidget *parent);

Q_SIGNALS:
    /// The user picked an entry from the open list, pressed Enter, or left with another text than the last
    /// confirmed one. Going through the entries with the arrow keys confirms nothing yet.
    void confirmed();

protected:
    /// The wheel scrolls what lies around; it never changes a text under the pointer.
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void follow();
    void showText();
    void take(const QString &text);
    void confirm();

    XPCombo &m_combo;
    QString m_confirmedText;
    QStringList m_shownItems;
    Exchange m_exchange;
    bool m_isStepping = false;
};

} // namespace ebtq
