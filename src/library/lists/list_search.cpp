#include "library/lists/list_search.h"

#include "library/controls/drawn_later.h"
#include "library/controls/flex_grid.h"

using namespace Qt::StringLiterals;

namespace ebtq {

ListSearch::ListSearch(Module &module, VSFlexGrid &list, Qt::CaseSensitivity sensitivity)
    : ModulePart(module)
    , m_list(list)
    , m_sensitivity(sensitivity)
    , m_label(controls().add<Label>(u"lblSearch"_s))
    , m_box(controls().add<SearchBox>(u"SearchBox1"_s))
    , m_filters(controls().add<CheckBox>(u"ChkFind"_s))
{
    m_label.setCaption(u"搜索(&F):"_s);
    m_filters.setCaption(u"过滤"_s);
    connect(&m_box, &SearchBox::Search, this, &ListSearch::searchAgain);
    connect(&m_box, &SearchBox::Clear, &m_list, &VSFlexGrid::showAllRows);
    connect(&m_filters, &CheckBox::Click, this, [this] {
        m_box.setFilterFlag(m_filters.Value() == 1);
        searchAgain(m_box.Text());
    });
}

void ListSearch::setUp()
{
    m_box.setSetting(u"500"_s);
    m_box.bindColumns(m_list);
    m_box.setFilterFlag(m_filters.Value() == 1);
}

/// Lists that are searched without regard to case have a "%" after the last column as well.
QList<int> ListSearch::columns() const
{
    constexpr int emptyCell = -1;
    return m_sensitivity == Qt::CaseSensitive ? m_box.columns() : m_box.columns() + QList<int>{emptyCell};
}

bool ListSearch::search(const QString &text)
{
    return text.isEmpty() || drawnLater(m_list, [&] {
               m_list.showAllRows();
               if (m_filters.Value() == 1) {
                   m_list.hideRowsWithout(text, columns(), m_sensitivity);
                   return true;
               }
               const int row = m_list.findRow(text, columns(), m_list.FixedRows(), m_sensitivity);
               if (row >= 0)
                   m_list.setRow(row);
               return row >= 0;
           });
}

void ListSearch::searchAgain(const QString &text)
{
    trappedWithoutDatabase(u"-->SearchBox1_Search::", [&] {
        if (!search(text))
            Q_EMIT notFound(text);
        return true;
    });
}

} // namespace ebtq
