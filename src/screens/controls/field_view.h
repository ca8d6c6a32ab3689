#pragma once

#include "library/frame/focus_helper.h"
#include "screens/controls/field_error.h"

#include <QLineEdit>
#include <QPointer>

namespace ebtq {

class qzTxt_S;

/// The widget of a field control: a text with a help arrow or a calendar inside; its caption is a label of
/// its own (makeCaption), so that a form can line captions up. F4, Alt+Down and the arrow ask for help.
/// Leaving the field runs its check: a text that is refused keeps the focus and is marked, Escape brings back
/// what was there before the typing. Enter and Down go to the next field, Up to the previous one.
class FieldView : public QLineEdit
{
    Q_OBJECT

public:
    /// What Enter does on a text that passed its check.
    enum class Enter { GoesOn, Confirms };

    FieldView(qzTxt_S &field, QWidget *parent);
    ~FieldView() override;

    void setEnter(Enter enter) { m_enter = enter; }
    /// Runs the check; true when the field may be left. Otherwise the field is marked and says why.
    bool check();
    /// Checks the field that has the focus, for a command that reads the fields without moving it. True when
    /// no field has it.
    static bool checkFocused();

Q_SIGNALS:
    /// With Enter::Confirms: Enter was pressed on a text that passed, or help gave another text or value.
    void confirmed();

protected:
    bool event(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void follow();
    void followText();
    void clickArrow();
    void askHelp();
    void takeChoice();
    void moveBy(int key);
    void refuse();
    void mark(bool refused);
    void dropError();
    void takeBack();
    [[nodiscard]] bool mayLeave();
    void takeFocusBack();

    qzTxt_S &m_field;
    FocusHelper m_focus;
    QAction *m_help;
    Enter m_enter = Enter::GoesOn;
    bool m_checking = false;
    bool m_takesFocusBack = false;
    QPointer<FieldError> m_error;
};

} // namespace ebtq
