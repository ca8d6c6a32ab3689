#pragma once

#include "contracts/host_contracts.h"
#include "library/controls/check_box.h"
#include "library/controls/combo_box.h"
#include "library/controls/field_control.h"
#include "library/controls/flex_grid.h"
#include "library/controls/label.h"
#include "library/controls/mouse_wheel.h"
#include "library/controls/nav_toolbar.h"
#include "library/controls/search_box.h"
#include "library/frame/module.h"
#include "library/listings/listing_detail.h"
#include "library/lists/list_layout.h"

#include <memory>

namespace ebtq {

class FrmFx;
class FrmGj;
struct ListingFilter;

/// The list of listings: filter fields that make one statement, the grid that its rows fill, a search in the
/// loaded rows and the tool bar.
class Fcxx : public Module, public IReportUI
{
    Q_OBJECT
    Q_INTERFACES(ebtq::IReportUI)

public:
    explicit Fcxx(Desktop &desktop);
    ~Fcxx() override;

    /// Numbers 0 城区, 1 房型, 3 状态, 4 部门, 5 经纪人 and 7 楼盘.
    [[nodiscard]] qzTxt_S &qzTxt(int number);
    /// Numbers 0 出售 and 1 出租.
    [[nodiscard]] CheckBox &Chk(int number);
    [[nodiscard]] XPCombo &XPCmb() { return m_window; }
    [[nodiscard]] SearchBox &SearchBox1() { return m_searchBox; }
    [[nodiscard]] Label &lblSearch() { return m_searchLabel; }
    [[nodiscard]] CheckBox &ChkFind() { return m_findFilters; }
    [[nodiscard]] NavToolbar &NavToolbar1() { return m_toolbar; }
    [[nodiscard]] VSFlexGrid &VS() { return m_grid; }
    /// The tabs below the list.
    [[nodiscard]] ListingDetail &detail() { return m_detail; }
    /// nullptr outside of Init ... Clear.
    [[nodiscard]] MouseWheel *mcMouseEvent() const { return m_wheel.get(); }
    /// The editor of one listing; nullptr outside of Init ... Clear.
    [[nodiscard]] FrmFx *mFrmFx() const { return m_editor.get(); }
    /// The editor of one follow-up; nullptr outside of Init ... Clear.
    [[nodiscard]] FrmGj *mFrmGj() const { return m_followUpEditor.get(); }

    bool IReportUI_Init(HostApp &app, int moduleId) override;
    bool IReportUI_Clear() override;
    bool IReportUI_Find(const QVariant &) override { return false; }
    bool IReportUI_FindNext() override { return false; }
    bool IReportUI_Filter(const QVariant &) override { return false; }
    bool IReportUI_Refresh() override;
    bool IReportUI_RecordTop() override { return false; }
    bool IReportUI_RecordPrevious() override { return false; }
    bool IReportUI_RecordNext() override { return false; }
    bool IReportUI_RecordBottom() override { return false; }
    bool IReportUI_PrintPreview() override { return false; }
    bool IReportUI_DoPrint() override { return false; }
    bool IReportUI_PrintSetup() override { return false; }
    bool IReportUI_Help() override { return false; }
    QString IReportUI_ReturnPrintName() override { return {}; }
    void IReportUI_DoGetFormStatus(const QString &file) override;
    void IReportUI_DoSaveFormStatus(const QString &file) override;
    /// "nomenu" for 99: the module has a tool bar of its own and wants no menu.
    QVariant IReportUI_Attributes(const QVariant &key) override;
    QObject *IReportUI_oTable() override { return &m_grid; }
    QVariant IReportUI_Parameters() override { return {}; }
    void IReportUI_Parameters(const ParameterList *) override {}

    /// Prints (`bPrint` true) or previews the list as it is seen, or with `bSetup` sets its print file up.
    /// False when that failed. The desktop calls it by itself: the contract's print operations are not for
    /// this list.
    Q_INVOKABLE bool SelfPrint(bool bPrint, bool bSetup);

Q_SIGNALS:
    void Message(const QString &psMsg);
    void ErrMessage(const QString &psMsg, int plLevel, const QString &psTitle);
    void FormRefreshed();
    void Property(const QString &psName, const QVariant &psValue, bool pbAutoUpdate);
    void VsMouseDown(short &Button, short &shift, float &X, float &Y);
    void RefreshGetGridStatus();
    void UnLoad(bool &pbReturn);

protected:
    void raiseError(const QString &message, int level, const QString &title) override
    {
        Q_EMIT ErrMessage(message, level, title);
    }

private:
    /// Where the user stands in the list.
    struct Place
    {
        QString listing; ///< its 房源ID; empty for none
        int rowsBelowTop = 0;
        bool isScrolled = false;
    };

    void makeControls();
    void connectFields();
    void connectGrid();
    void setUpFilter();
    void setUpGrid();
    void setUpSearch();
    void applyRights();

    bool refresh();
    [[nodiscard]] ListingFilter filter();
    void show(Recordset &rows);
    void reportCount();
    void notePlace();
    void returnToPlace();
    [[nodiscard]] int rowOf(const QString &listing) const;
    [[nodiscard]] int rowToRewrite(const QString &listing) const;
    void showAttachmentIcons();
    void setWheelRange();
    /// False when it looked for a row and there is none.
    bool search(const QString &text);
    void searchAgain(const QString &text);
    void rowChanged(int oldRow, int newRow);
    void scrolled();
    void turned(int value);

    void pressed(const QString &key);
    void showOnly(bool forSale, bool forRent);
    void clearFields();
    void makeEditors();
    [[nodiscard]] bool isRowValid() const;
    [[nodiscard]] bool isRowInSight();
    [[nodiscard]] QString listingInSight();
    void openEditor(const QString &listing, bool hideOwner);
    void editListing();
    void viewListing();
    void mFrmFx_ReturnData(const QString &psID, bool pbNew);
    void writeFollowUp();
    void deleteListing();
    [[nodiscard]] bool isDeletionAgreed();
    /// The deletion of the listing itself; nullptr when a statement failed, of which the host has been told.
    [[nodiscard]] std::unique_ptr<HostQuery> deleteRows(const QString &listing);
    void showSavedRow(const QString &listing, int row);
    void showDetailOfNumber();
    /// What the list is filtered by, as it stands below the title.
    [[nodiscard]] QString printSubtitle();
    void showHelp(int number, int left, int top, QString &text, QVariant &value);
    void checkField(int number, const QString &base, const QString &valueField, const QString &textField,
                    QVariant &value, QString &text);
    /// The picker of a field, ready and with its parameters; nullptr when it cannot be used.
    [[nodiscard]] HostPicker *picker(int number);

    NavToolbar &m_toolbar;
    CheckBox &m_forSale;
    CheckBox &m_forRent;
    XPCombo &m_window;
    Label &m_searchLabel;
    SearchBox &m_searchBox;
    CheckBox &m_findFilters;
    VSFlexGrid &m_grid;
    ListingDetail m_detail;
    ListLayout m_layout;
    std::unique_ptr<MouseWheel> m_wheel;
    std::unique_ptr<FrmFx> m_editor;
    std::unique_ptr<FrmGj> m_followUpEditor;
    bool m_inited = false;
    int m_moduleId = 0;
    double m_wheelRate = 5; ///< rows for each step of the wheel
    bool m_turning = false;
    bool m_refreshing = false; ///< from the emptied list to its rows' being in place
    Place m_place;
};

} // namespace ebtq
