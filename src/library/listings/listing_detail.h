#pragma once

#include "library/lists/record_detail.h"
#include "library/matching/match_reasons.h"

namespace ebtq {

/// The tabs below the list of listings.
class ListingDetail : public RecordDetail
{
    Q_OBJECT

public:
    ListingDetail(Module &module, const VSFlexGrid &list);

    /// The grids' columns; part of the module's Init.
    void setUpGrids();
    /// Writes a follow-up of the current listing as it was saved: a new one is added at the bottom until the
    /// tab is loaded again, newest first.
    void mFrmGj_ReturnData(const QString &psID, bool pbNew);
    /// What the tab of pictures says of them.
    [[nodiscard]] QString picturesText() const;

    /// The display fields of the first two tabs, by their numbers in detailFields().
    [[nodiscard]] qzTxt_S &qzFcTxt(int number) { return field(number); }
    /// Numbers 0 联系 and 1 备注.
    [[nodiscard]] TextBox &Txt(int number) { return box(number); }
    /// The listing's follow-ups.
    [[nodiscard]] VSFlexGrid &VsGj() { return m_followUps; }
    /// The customers that the listing suits.
    [[nodiscard]] VSFlexGrid &VsP() { return m_customers; }
    /// Shows why the matching tab holds these and no others.
    void showReasons() { m_reasons.show(currentRecord()); }

protected:
    bool load(int tab, const QString &id) override;
    SqlText countStatement(const QString &id) const override;

private:
    bool LoadData(const QString &id);
    bool LoadDataGj(const QString &id);
    bool LoadDataMsg(const QString &id);
    bool countPictures(const QString &id);

    VSFlexGrid &m_followUps;
    VSFlexGrid &m_customers;
    KeptLayout m_followUpsLayout;
    MatchReasons m_reasons;
    int m_pictureCount = 0;
};

} // namespace ebtq
