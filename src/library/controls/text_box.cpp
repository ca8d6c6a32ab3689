#include "library/controls/text_box.h"

namespace ebtq {

TextBox::TextBox(const QString &name, int index, Lines lines)
    : Control(QStringLiteral("TextBox"), name, index)
    , m_lines(lines)
{}

void TextBox::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    Q_EMIT Change();
}

} // namespace ebtq
