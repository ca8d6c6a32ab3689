#pragma once

#include "library/listings/listing_detail.h"
#include "library/lists/record_list.h"

namespace ebtq {

class FrmFx;
class FrmGj;

/// The list of listings.
class Fcxx : public RecordList
{
    Q_OBJECT

public:
    explicit Fcxx(Desktop &desktop);
    ~Fcxx() override;

    /// The tabs below the list.
    [[nodiscard]] ListingDetail &detail() { return m_detail; }
    /// The editor of one listing; nullptr outside of Init ... Clear.
    [[nodiscard]] FrmFx *mFrmFx() const { return m_editor.get(); }
    /// The editor of one follow-up; nullptr outside of Init ... Clear.
    [[nodiscard]] FrmGj *mFrmGj() const { return m_followUpEditor.get(); }

    bool IReportUI_Clear() override;
    [[nodiscard]] QString copyCaption() const override;

protected:
    SqlText statement() override;
    void makeEditors() override;
    void setUpGrids() override;
    void rowsLoaded() override;
    QString printSubtitle() override;
    RecordDetail &recordDetail() override { return m_detail; }
    void openEditor(HostApp &host, const QString &key, bool isRestricted) override;
    void openCopy(HostApp &host, const QString &key) override;
    void openFollowUpEditor(HostApp &host, const QString &owner) override;
    SqlText rowStatement(const QString &key) const override;
    Deletion deletion(const QString &key) const override;

private:
    void mFrmFx_ReturnData(const QString &psID, bool pbNew);
    void showDetailOfNumber();

    ListingDetail m_detail;
    std::unique_ptr<FrmFx> m_editor;
    std::unique_ptr<FrmGj> m_followUpEditor;
};

} // namespace ebtq
