#pragma once

#include "library/customers/customer_detail.h"
#include "library/customers/khxx_tables.h"

namespace ebtq {

class FrmGj;
class frmKh;

/// The list of customers' requests.
class khxx : public RecordList
{
    Q_OBJECT

public:
    explicit khxx(Desktop &desktop);
    ~khxx() override;

    /// The tabs below the list.
    [[nodiscard]] CustomerDetail &detail() { return m_detail; }
    /// The editor of one request; nullptr outside of Init ... Clear.
    [[nodiscard]] frmKh *mFrmKh() const { return m_editor.get(); }
    /// The editor of one follow-up; nullptr outside of Init ... Clear.
    [[nodiscard]] FrmGj *mFrmGj() const { return m_followUpEditor.get(); }

    bool IReportUI_Clear() override;

protected:
    SqlText statement() override;
    void makeEditors() override;
    void setUpGrids() override { m_detail.setUpGrids(); }
    void rowChanged(const QString &key) override;
    RecordDetail &recordDetail() override { return m_detail; }
    void openEditor(HostApp &host, const QString &key, bool isRestricted) override;
    void openFollowUpEditor(HostApp &host, const QString &owner) override;
    SqlText rowStatement(const QString &key) const override { return customerRowStatement(key); }
    Deletion deletion(const QString &key) const override;

private:
    void mFrmKh_ReturnData(const QString &id, bool bNew);

    CustomerDetail m_detail;
    std::unique_ptr<frmKh> m_editor;
    std::unique_ptr<FrmGj> m_followUpEditor;
};

} // namespace ebtq
