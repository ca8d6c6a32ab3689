#include "library/controls/search_box.h"

#include "contracts/conversions.h"
#include "library/controls/flex_grid.h"

using namespace Qt::StringLiterals;

namespace ebtq {

SearchBox::SearchBox(const QString &name, int index)
    : Control(u"SearchBox"_s, name, index)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &SearchBox::searchNow);
}

void SearchBox::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    Q_EMIT textChanged();
    if (m_text.isEmpty()) {
        m_pause.stop();
        Q_EMIT Clear();
    } else {
        m_pause.start();
    }
}

void SearchBox::setSetting(const QString &milliseconds)
{
    m_pause.setInterval(std::max(0, WholePart(Val(milliseconds))));
}

void SearchBox::bindColumns(const VSFlexGrid &grid)
{
    m_columns.clear();
    for (int col = 0; col < grid.Cols(); ++col) {
        if (!grid.ColHidden(col))
            m_columns.append(col);
    }
}

void SearchBox::searchNow()
{
    m_pause.stop();
    Q_EMIT Search(m_text);
}

} // namespace ebtq
