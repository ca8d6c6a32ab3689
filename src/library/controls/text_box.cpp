#include "library/controls/text_box.h"

using namespace Qt::StringLiterals;

namespace ebtq {

TextBox::TextBox(const QString &name, int index, Lines lines)
    : Control(u"TextBox"_s, name, index)
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
