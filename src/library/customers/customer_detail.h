#pragma once

#include "library/lists/record_detail.h"
#include "library/matching/match_reasons.h"

namespace ebtq {

/// Tabs of a customer's detail, by number.
enum CustomerDetailTab : int { RequestTab = 1, ContactTab, MatchingListingsTab, CustomerFollowUpsTab };

/// The tabs below the list of customers.
class CustomerDetail : public RecordDetail
{
    Q_OBJECT

public:
    CustomerDetail(Module &module, const VSFlexGrid &list);

    /// The grids' columns; part of the module's Init.
    void setUpGrids();
    /// Fills the fields of the first two tabs, whichever tab is active; empties them when the request is
    /// gone: nobody is to call another customer.
    bool LoadDataMsg(const QString &id);
    /// Writes a follow-up of the current customer as it was saved: a new one is added at the bottom, as the
    /// current row, until the tab is loaded again, newest first.
    void mFrmGj_ReturnData(const QString &psID, bool pbNew);

    /// The listings that suit the customer.
    [[nodiscard]] VSFlexGrid &VsP() { return m_listings; }
    /// The customer's follow-ups.
    [[nodiscard]] VSFlexGrid &VsGj() { return m_followUps; }
    /// Shows why the matching tab holds these and no others.
    void showReasons() { m_reasons.show(currentRecord()); }

Q_SIGNALS:
    /// The current row's request is not in the database any more.
    void requestGone();

protected:
    bool load(int tab, const QString &id) override;
    SqlText countStatement(const QString &id) const override;

private:
    bool LoadDataFy(const QString &id);
    bool LoadDataGj(const QString &id);
    bool isThere(const QString &id, bool found);

    VSFlexGrid &m_listings;
    VSFlexGrid &m_followUps;
    KeptLayout m_followUpsLayout;
    MatchReasons m_reasons;
};

/// The display fields of the first two tabs.
[[nodiscard]] std::span<const DetailField> customerDetailFields();

} // namespace ebtq
