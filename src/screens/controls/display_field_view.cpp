#include "screens/controls/display_field_view.h"

#include "library/controls/field_control.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/whole_text.h"

#include <QHelpEvent>
#include <QStyleOptionFrame>

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

bool DisplayFieldView::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !isCut())
        return QLineEdit::event(event);
    showWholeText(text(), static_cast<QHelpEvent *>(event)->globalPos(), *this, rect());
    return true;
}

bool DisplayFieldView::isCut() const
{
    constexpr int besideText = 4; // between the frame's contents and the text, on both sides together
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect inside = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    return fontMetrics().horizontalAdvance(text()) > inside.width() - besideText;
}

} // namespace ebtq
