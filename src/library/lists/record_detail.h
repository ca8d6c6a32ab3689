#pragma once

#include "database/values/row_block.h"
#include "library/controls/field_control.h"
#include "library/controls/flex_grid.h"
#include "library/controls/panel.h"
#include "library/controls/tab_strip.h"
#include "library/controls/text_box.h"
#include "library/frame/module_part.h"
#include "library/layout/kept_layout.h"

#include <QTimer>

#include <optional>
#include <span>
#include <vector>

namespace ebtq {

/// The row of one record, its columns by name. Throws Failure for an unknown one.
class DetailRecord
{
public:
    explicit DetailRecord(RowBlock row)
        : m_row(std::move(row))
    {}
    [[nodiscard]] bool isNull(QStringView column) const { return m_row.isNull(0, at(column)); }
    /// Numbers and dates as they are read by people; empty for Null.
    [[nodiscard]] QString text(QStringView column) const;
    [[nodiscard]] double number(QStringView column) const;
    [[nodiscard]] QVariant value(QStringView column) const { return m_row.value(0, at(column)); }

private:
    [[nodiscard]] int at(QStringView column) const;
    RowBlock m_row;
};

struct DetailTab
{
    QStringView caption;
    QStringView key;
};

/// A display field and where its text comes from.
struct DetailField
{
    int number;
    QStringView caption;
    int tab;
    QStringView column;
    /// The text that a record gives the field; nothing when the field is to keep what it shows. Without a
    /// function it is the column's.
    std::optional<QString> (*text)(const DetailRecord &record, QStringView column) = nullptr;
    QStringView valueColumn = {}; ///< with the key that belongs to the text; empty for none
    QStringView meaning = {};     ///< for the tool tip, where the caption does not say it
};

/// A box with a text of many lines.
struct DetailBox
{
    int number; ///< -1 for the only one of its name
    QStringView caption;
    QStringView column;
};

/// What a detail consists of.
struct DetailTables
{
    std::span<const DetailTab> tabs;
    int firstTab;          ///< initially active; tabs count from 1
    QStringView fieldName; ///< of the controls
    /// In the order in which they are filled: when one fails, the later ones keep what they show.
    std::span<const DetailField> fields;
    QStringView boxName;
    std::span<const DetailBox> boxes;
    int keyColumn;                         ///< of the list, with the key of the record
    std::span<const int> countedTabs = {}; ///< whose captions say how much is on them
};

/// The tabs below a list, which show its current record. Only the active tab is loaded, when the list's
/// current row changes and when the tab is entered; the others keep what they show until they are entered
/// themselves.
class RecordDetail : public QObject, protected ModulePart
{
    Q_OBJECT

public:
    /// Loads the active tab for the record with that key. A failure is raised by the module.
    void ShowDetail(const QString &id);
    /// Loads it for the current row of the list; without one the tabs are emptied.
    void showCurrent();

    [[nodiscard]] qzVSTabCtl &qzVSTabCtl1() { return m_tabs; }
    /// Number 0 belongs to tab 1.
    [[nodiscard]] qzPanel &pnlTab(int number);
    /// A display field by its number in the table.
    [[nodiscard]] qzTxt_S &field(int number);
    [[nodiscard]] TextBox &box(int number);
    /// In the order of their table.
    [[nodiscard]] const std::vector<TextBox *> &boxes() const { return m_boxes; }

Q_SIGNALS:
    /// A tab was loaded: `done` when it shows what the database holds for the current record.
    void TabShown(int tab, bool done);

protected:
    /// Adds its controls to the module's. `list` is the module's grid of records, which outlives the detail
    /// as the module does; the tables are constants.
    RecordDetail(Module &module, const VSFlexGrid &list, const DetailTables &tables);

    /// The key of the list's current row; empty without one.
    [[nodiscard]] QString currentRecord() const;
    /// A grid of this detail, which an empty list empties; to be called by the constructor.
    [[nodiscard]] VSFlexGrid &addGrid(const QString &name);

    /// Counts what is on the tabs when the person is idle.
    void countLater();
    /// What counts for a record: one row with the numbers for the counted tabs.
    [[nodiscard]] virtual SqlText countStatement(const QString &) const { return {}; }
    /// Loads a tab; false when it does not show what the database holds.
    virtual bool load(int tab, const QString &id) = 0;
    /// Fills the fields and boxes from the only row of a statement; false without a row.
    bool loadFields(const SqlText &sql);
    void emptyFields();
    /// `layout` is the grid's, restored after the load; nullptr for a grid that stays as it was built.
    bool loadGrid(VSFlexGrid &grid, const SqlText &sql, KeptLayout *layout);

private:
    template<class T> [[nodiscard]] T &control(QStringView name, int number);
    void makeControls();
    void setPanelVisible(int tab, bool visible);
    void empty();
    void fill(const DetailRecord &record);
    void count();
    void showCount(int tab, int count);

    const VSFlexGrid &m_list;
    const DetailTables m_tables;
    qzVSTabCtl &m_tabs;
    std::vector<VSFlexGrid *> m_grids;
    std::vector<qzTxt_S *> m_fields; ///< in the order of their table
    std::vector<TextBox *> m_boxes;
    QTimer m_idle; ///< from the last change of the record to its counts
    bool m_isCountingSlow = false;
};

} // namespace ebtq
