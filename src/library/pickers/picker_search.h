#pragma once

#include "library/controls/check_box.h"
#include "library/controls/control_collection.h"
#include "library/controls/flex_grid.h"
#include "library/controls/text_box.h"

#include <QList>
#include <QObject>

namespace ebtq {

class Desktop;

/// Finds rows in a picker's list, or hides those that do not match, as the user types. It looks into a list
/// of columns that is kept as text, "1;2;4" to begin with: tick or code, then code or abbreviation, then key
/// or use. Names are not among them: users add their column if they need it.
class PickerSearch : public QObject
{
    Q_OBJECT

public:
    /// Makes its controls. `grid` outlives the search.
    PickerSearch(ControlCollection &controls, VSFlexGrid &grid);

    [[nodiscard]] TextBox &text() const { return m_text; }
    /// Numbers of the searched columns, separated by semicolons.
    [[nodiscard]] TextBox &columnList() const { return m_columnList; }
    [[nodiscard]] CheckBox &filters() const { return m_filters; }
    /// Whole cells when it finds, beginnings of cells when it filters.
    [[nodiscard]] CheckBox &strictMatchBox() const { return m_strictMatchBox; }

    void readColumns();
    void askForColumns(Desktop &desktop);
    /// Called after a load: hides the rows that do not match.
    void rowsLoaded();

private:
    void apply();
    void find();
    void filter();
    void changeKind();
    [[nodiscard]] bool matches(int row, const QString &upperText) const;

    VSFlexGrid &m_grid;
    TextBox &m_text;
    TextBox &m_columnList;
    CheckBox &m_filters;
    CheckBox &m_strictMatchBox;
    QList<int> m_columns;
};

} // namespace ebtq
