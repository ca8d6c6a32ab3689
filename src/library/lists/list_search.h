#pragma once

#include "library/controls/check_box.h"
#include "library/controls/label.h"
#include "library/controls/search_box.h"
#include "library/frame/module_part.h"

namespace ebtq {

class VSFlexGrid;

/// The search box of a list: while a person types, the first row that contains the text becomes current, or,
/// with the box 过滤 ticked, rows without it are hidden. It works on loaded rows alone.
class ListSearch : public QObject, private ModulePart
{
    Q_OBJECT

public:
    /// Adds the controls to the module's; `list` outlives the search.
    ListSearch(Module &module, VSFlexGrid &list, Qt::CaseSensitivity sensitivity);

    [[nodiscard]] SearchBox &SearchBox1() { return m_box; }
    [[nodiscard]] Label &lblSearch() { return m_label; }
    [[nodiscard]] CheckBox &ChkFind() { return m_filters; }

    /// Part of the module's Init, when the list's columns are set up.
    void setUp();
    /// Searches the rows that were just loaded for the text of the box. False when no row has it.
    bool apply() { return search(m_box.Text()); }

Q_SIGNALS:
    void notFound(const QString &text);

private:
    bool search(const QString &text);
    [[nodiscard]] QList<int> columns() const;
    void searchAgain(const QString &text);

    VSFlexGrid &m_list;
    Qt::CaseSensitivity m_sensitivity;
    Label &m_label;
    SearchBox &m_box;
    CheckBox &m_filters;
};

} // namespace ebtq
