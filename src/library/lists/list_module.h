#pragma once

#include "contracts/host_contracts.h"
#include "library/controls/flex_grid.h"
#include "library/controls/mouse_wheel.h"
#include "library/frame/module.h"
#include "library/lists/list_filter.h"
#include "library/lists/list_grid.h"
#include "library/lists/list_layout.h"
#include "library/lists/list_search.h"

#include <memory>
#include <optional>

namespace ebtq {

/// What a list module consists of. All of it is constant.
struct ListTables
{
    enum class Wheel : quint8 {
        None,
        Absolute, ///< the list's top row follows the wheel's position
        Relative, ///< each step scrolls the list on from where it is
    };

    const ListGrid &grid;
    int firstColumn; ///< that the statement fills
    int keyColumn;
    const ListFilterTables *filter = nullptr; ///< nullptr for a list without filter and search box
    Wheel wheel = Wheel::Absolute;
    Qt::CaseSensitivity searchSensitivity = Qt::CaseSensitive;
    bool tellsCount = true; ///< whether each load raises Message with the number of rows
    QStringView refreshTag = u"-->IRptUI_Refresh::";
    QStringView printTitle = {};
    QStringView printTag = u"-->SelfPrint::"; ///< of a failure to print
};

/// The base of all modules that show rows of one statement in a grid VS: filter, load, search, wheel, layout,
/// print. A refresh keeps the user's row.
class ListModule : public Module, public IReportUI
{
    Q_OBJECT
    Q_INTERFACES(ebtq::IReportUI)

public:
    [[nodiscard]] VSFlexGrid &VS() { return m_grid; }
    // The controls of the filter and the search; only of a list that has them.
    [[nodiscard]] qzTxt_S &qzTxt(int number) { return m_filter->qzTxt(number); }
    [[nodiscard]] CheckBox &Chk(int number) { return m_filter->Chk(number); }
    [[nodiscard]] bool hasPeriods() const { return m_filter && m_filter->hasPeriods(); }
    [[nodiscard]] XPCombo &XPCmb() { return m_filter->XPCmb(); } ///< only with periods
    [[nodiscard]] SearchBox &SearchBox1() { return m_search->SearchBox1(); }
    [[nodiscard]] Label &lblSearch() { return m_search->lblSearch(); }
    [[nodiscard]] CheckBox &ChkFind() { return m_search->ChkFind(); }
    /// What the list is called on paper and in names of files.
    [[nodiscard]] QString title() const { return m_tables.printTitle.trimmed().toString(); }
    /// nullptr outside of Init ... Clear and for a list without one.
    [[nodiscard]] MouseWheel *mcMouseEvent() const { return m_wheel.get(); }

    bool IReportUI_Init(HostApp &app, int moduleId) override;
    /// Leaves the rows as they are.
    bool IReportUI_Clear() override;
    bool IReportUI_Refresh() override;
    void IReportUI_DoGetFormStatus(const QString &file) override;
    void IReportUI_DoSaveFormStatus(const QString &file) override;
    QObject *IReportUI_oTable() override { return &m_grid; }

    // What a plain list does not offer.
    bool IReportUI_Find(const QVariant &) override { return false; }
    bool IReportUI_FindNext() override { return false; }
    bool IReportUI_Filter(const QVariant &) override { return false; }
    bool IReportUI_RecordTop() override { return false; }
    bool IReportUI_RecordPrevious() override { return false; }
    bool IReportUI_RecordNext() override { return false; }
    bool IReportUI_RecordBottom() override { return false; }
    bool IReportUI_PrintPreview() override { return false; }
    bool IReportUI_DoPrint() override { return false; }
    bool IReportUI_PrintSetup() override { return false; }
    bool IReportUI_Help() override { return false; }
    QString IReportUI_ReturnPrintName() override { return {}; }
    QVariant IReportUI_Attributes(const QVariant &) override { return QString(); }
    QVariant IReportUI_Parameters() override { return {}; }
    void IReportUI_Parameters(const ParameterList *) override {}

    /// Prints (`bPrint` true) or previews the list as it is seen, or with `bSetup` sets its print file up.
    /// False when that failed.
    Q_INVOKABLE bool SelfPrint(bool bPrint, bool bSetup);

protected:
    ListModule(const QString &name, Desktop &desktop, FailureNames failures, const ListTables &tables);

    // What differs between lists

    [[nodiscard]] virtual SqlText statement() = 0;
    /// Called before the first query of Init: commands need their forms even if loading fails.
    virtual void makeEditors() {}
    /// The grids' own settings; part of Init.
    virtual void setUpGrids() {}
    virtual void applyRights() {}
    /// The rows of a load are in the grid.
    virtual void rowsLoaded() {}
    /// The current row changed; its key.
    virtual void rowChanged(const QString & /*key*/) {}
    /// The filters, as printed below the title.
    [[nodiscard]] virtual QString printSubtitle() { return {}; }
    /// The file of its print settings; the folder exists. Throws Failure when it cannot be made.
    [[nodiscard]] virtual QString printSettings();
    virtual void raiseMessage(const QString &text) = 0;
    virtual void raiseRefreshGetGridStatus() = 0;

    // What it can use

    [[nodiscard]] int moduleId() const { return m_moduleId; }
    [[nodiscard]] ListFilter &filter() { return *m_filter; }
    [[nodiscard]] ListLayout &layout() { return m_layout; }
    [[nodiscard]] QString keyOf(int row) const { return m_grid.TextMatrix(row, m_tables.keyColumn); }
    /// The first row of a key; -1 when there is none.
    [[nodiscard]] int rowOf(const QString &key) const;
    [[nodiscard]] bool isRowValid() const;
    /// Rows were added or removed.
    void rowsChanged();

private:
    /// What a change of row or of the top row comes from.
    enum class Activity : quint8 {
        None,
        Refreshing, ///< from the emptied list to its rows' being in place
        Turning,    ///< the wheel scrolls
    };
    /// The user's position in the list.
    struct Place
    {
        QString key; ///< empty for none
        int rowsBelowTop = 0;
        bool isScrolled = false;
    };

    void connectGrid();
    void makeWheel();
    bool refresh();
    void show(Recordset &rows);
    void tellCount();
    void notePlace();
    void returnToPlace();
    void setWheelRange();
    void currentRowChanged(int oldRow, int newRow);
    void scrolled();
    void turnedTo(int position);
    void turnedBy(int steps);

    const ListTables m_tables;
    std::optional<ListFilter> m_filter;
    VSFlexGrid &m_grid;
    std::optional<ListSearch> m_search;
    ListLayout m_layout;
    std::unique_ptr<MouseWheel> m_wheel;
    double m_wheelRate = 0; ///< rows for each step of the wheel
    int m_moduleId = 0;
    Activity m_activity = Activity::None;
    Place m_place;
};

} // namespace ebtq
