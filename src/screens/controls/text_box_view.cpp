#include "screens/controls/text_box_view.h"

#include "library/controls/text_box.h"
#include "screens/controls/control_binding.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <memory>

namespace ebtq {

TextBoxView::TextBoxView(TextBox &box, QWidget *parent)
    : QLineEdit(box.Text(), parent)
{
    bindControl(box, *this);
    connect(this, &QLineEdit::textEdited, &box, &TextBox::setText);
    connect(this, &QLineEdit::returnPressed, &box, &TextBox::pressReturn);
    connect(&box, &TextBox::Change, this, [this, &box] {
        if (text() != box.Text())
            setText(box.Text());
    });
}

/// The widget knows one kind of line end only, so the control takes its text back from here only after a real
/// edit: a text that is shown and not touched stays as it was stored.
TextAreaView::TextAreaView(TextBox &box, QWidget *parent)
    : QPlainTextEdit(box.Text(), parent)
{
    bindControl(box, *this);
    setTabChangesFocus(true);
    const auto isTaking = std::make_shared<bool>(false);
    connect(this, &QPlainTextEdit::textChanged, &box, [this, &box, isTaking] {
        const QScopedValueRollback taking(*isTaking, true);
        box.setText(toPlainText());
    });
    connect(&box, &TextBox::Change, this, [this, &box, isTaking] {
        if (*isTaking)
            return;
        const QSignalBlocker blocker(this);
        setPlainText(box.Text());
    });
}

} // namespace ebtq
