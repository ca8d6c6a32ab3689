#include "library/customers/khxx.h"

#include "library/customers/frm_kh.h"
#include "library/followups/frm_gj.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"

using namespace Qt::StringLiterals;

namespace ebtq {

khxx::khxx(Desktop &desktop)
    : RecordList(u"khxx"_s, desktop, {u"khxx"_s, u"Fcxx"_s}, customerList(), customerRecords())
    , m_detail(*this, VS())
{
    connect(&m_detail, &CustomerDetail::requestGone, this, [this] {
        Q_EMIT Message(
            u"客源 %1 已被他人删除，刷新后不再列出！"_s.arg(VS().TextMatrix(VS().Row(), CustomerCode)));
    });
}

khxx::~khxx() = default;

void khxx::makeEditors()
{
    m_editor = std::make_unique<frmKh>(desktop());
    connect(m_editor.get(), &frmKh::Message, this, &khxx::Message);
    connect(m_editor.get(), &frmKh::ErrMessage, this, &khxx::ErrMessage);
    connect(m_editor.get(), &frmKh::ReturnData, this, &khxx::mFrmKh_ReturnData);
    m_followUpEditor = std::make_unique<FrmGj>(desktop());
    connect(m_followUpEditor.get(), &FrmGj::ReturnData, &m_detail, &CustomerDetail::mFrmGj_ReturnData);
}

bool khxx::IReportUI_Clear()
{
    m_editor.reset();
    m_followUpEditor.reset();
    return RecordList::IReportUI_Clear();
}

SqlText khxx::statement()
{
    return customerStatement(filter().where(desktop().now()));
}

/// A new row has no key until its record is there.
void khxx::rowChanged(const QString &key)
{
    if (!key.isEmpty())
        m_detail.ShowDetail(key);
}

void khxx::openEditor(HostApp &host, const QString &key, bool isRestricted)
{
    m_editor->py_Init(host, moduleId(), key, isRestricted);
}

void khxx::openFollowUpEditor(HostApp &host, const QString &owner)
{
    m_followUpEditor->setOwnerNumber(currentNumber());
    m_followUpEditor->py_Init(host, owner, {}, false);
}

/// Deliberately as it is: the second statement looks for the customer's key among the listings, where it
/// never is, and the customer's follow-ups stay.
RecordList::Deletion khxx::deletion(const QString &key) const
{
    const auto from = [&](QStringView tableAndColumn) {
        return SqlText(u" Delete from %1="_s.arg(tableAndColumn)) + quoted(key);
    };
    return {{from(u"fykh where 客源ID"), from(u"fyxx where 房源ID")}, 0};
}

/// The tag is the listings'. A new row became current before it had a key, and another budget has other
/// matches: the open tab follows.
void khxx::mFrmKh_ReturnData(const QString &id, bool bNew)
{
    trapped(u"-->mFrmFx_ReturnData::", [&] {
        showSaved(id, bNew);
        const QString current = isRowValid() ? keyOf(VS().Row()) : QString();
        if (!current.isEmpty())
            m_detail.LoadDataMsg(current);
        if (current.isEmpty() || m_detail.qzVSTabCtl1().ActiveTab() > ContactTab)
            m_detail.showCurrent();
        return true;
    });
}

} // namespace ebtq
