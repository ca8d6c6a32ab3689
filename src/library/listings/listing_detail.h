#pragma once

#include "library/controls/field_control.h"
#include "library/controls/flex_grid.h"
#include "library/controls/panel.h"
#include "library/controls/tab_strip.h"
#include "library/controls/text_box.h"
#include "library/frame/module_part.h"
#include "library/layout/kept_layout.h"

#include <vector>

namespace ebtq {

struct DetailField;
class ListingRecord;

/// The tabs below the list of listings. Only the active one is loaded, when the list's current row changes
/// and when the tab is entered; the others keep what they show until they are entered themselves.
class ListingDetail : public QObject, private ModulePart
{
    Q_OBJECT

public:
    /// Adds its controls to the module's. `list` is the module's grid of listings; both outlive the detail.
    ListingDetail(Module &module, const VSFlexGrid &list);

    /// The grids' columns; part of the module's Init.
    void setUpGrids();
    /// Loads the active tab for the listing with that 房源ID. A failure is raised by the module.
    void ShowDetail(const QString &id);
    /// Loads it for the current row of the list; without one nobody's data is left in the tabs.
    void showCurrent();
    /// What the tab of pictures says of them.
    [[nodiscard]] QString picturesText() const;

    [[nodiscard]] qzVSTabCtl &qzVSTabCtl1() { return m_tabs; }
    /// Number 0 belongs to tab 1.
    [[nodiscard]] qzPanel &pnlTab(int number);
    /// The display fields of the first two tabs, by their numbers in detailFields().
    [[nodiscard]] qzTxt_S &qzFcTxt(int number);
    /// Numbers 0 联系 and 1 备注.
    [[nodiscard]] TextBox &Txt(int number);
    /// The listing's follow-ups.
    [[nodiscard]] VSFlexGrid &VsGj() { return m_followUps; }
    /// The customers that the listing suits.
    [[nodiscard]] VSFlexGrid &VsP() { return m_customers; }

Q_SIGNALS:
    /// A tab was loaded: `done` when it shows what the database holds for the current listing.
    void TabShown(int tab, bool done);

private:
    template<class T> [[nodiscard]] T &control(const QString &name, int number);
    void makeControls();
    void setPanelVisible(int tab, bool visible);

    bool load(int tab, const QString &id);
    bool LoadData(const QString &id);
    bool LoadDataGj(const QString &id);
    bool LoadDataMsg(const QString &id);
    bool countPictures(const QString &id);
    [[nodiscard]] QString currentListing() const;
    void empty();
    void fill(const ListingRecord &record);
    /// `layout` is the grid's, restored after the load; nullptr for a grid that stays as it was built.
    [[nodiscard]] bool loadInto(VSFlexGrid &grid, const SqlText &sql, KeptLayout *layout);

    const VSFlexGrid &m_list;
    qzVSTabCtl &m_tabs;
    VSFlexGrid &m_followUps;
    VSFlexGrid &m_customers;
    KeptLayout m_followUpsLayout;
    std::vector<qzTxt_S *> m_fields; ///< in the order of detailFields()
    std::vector<TextBox *> m_boxes;  ///< in the order of detailBoxes()
    int m_pictureCount = 0;
};

} // namespace ebtq
