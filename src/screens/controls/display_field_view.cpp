#include "screens/controls/display_field_view.h"

#include "library/controls/field_control.h"
#include "screens/controls/control_binding.h"

namespace ebtq {

DisplayFieldView::DisplayFieldView(qzTxt_S &field, QWidget *parent)
    : QLineEdit(parent)
{
    bindControl(field, *this);
    setReadOnly(true);
    const auto follow = [this, &field] {
        if (text() == field.Text())
            return;
        setText(field.Text());
        setCursorPosition(0); // a text that is too long shows its beginning
    };
    connect(&field, &qzTxt_S::FieldChange, this, follow);
    follow();
}

} // namespace ebtq
