#include "library/listings/fcxx.h"

#include "contracts/conversions.h"
#include "database/values/number_text.h"
#include "library/followups/frm_gj.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"
#include "library/listings/fcxx_tables.h"
#include "library/listings/frm_fx.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

QString attachmentIcon()
{
    return u"mail-attachment"_s;
}

SqlText deletionFrom(const QString &table, const QString &listing)
{
    return SqlText(u" Delete from %1 where 房源ID="_s.arg(table)) + quoted(listing);
}

} // namespace

Fcxx::Fcxx(Desktop &desktop)
    : RecordList(u"Fcxx"_s, desktop, {u"Fcxx"_s, applicationTitle()}, listingList(), listingRecords())
    , m_detail(*this, VS())
{}

Fcxx::~Fcxx() = default;

void Fcxx::makeEditors()
{
    m_editor = std::make_unique<FrmFx>(desktop());
    connect(m_editor.get(), &FrmFx::Message, this, &Fcxx::Message);
    connect(m_editor.get(), &FrmFx::ErrMessage, this, &Fcxx::ErrMessage);
    connect(m_editor.get(), &FrmFx::ReturnData, this, &Fcxx::mFrmFx_ReturnData);
    connect(m_editor.get(), &FrmFx::neighbourWanted, this,
            [this](int step, QString &key) { key = goToNeighbour(step); });
    m_followUpEditor = std::make_unique<FrmGj>(desktop());
    connect(m_followUpEditor.get(), &FrmGj::ReturnData, &m_detail, &ListingDetail::mFrmGj_ReturnData);
}

void Fcxx::setUpGrids()
{
    // Texts with their unit, but read as the amounts that they are, on the screen as on paper.
    for (const int column : {ListingSalePrice, ListingRent})
        VS().setColAlignment(column, VSFlexGrid::AlignRight);
    VS().setCellPicture(0, ListingMarker, attachmentIcon());
    m_detail.setUpGrids();
}

bool Fcxx::IReportUI_Clear()
{
    m_editor.reset();
    m_followUpEditor.reset();
    return RecordList::IReportUI_Clear();
}

SqlText Fcxx::statement()
{
    return listingStatement(moduleId(), filter().where(desktop().now()));
}

SqlText Fcxx::rowStatement(const QString &key) const
{
    return listingRowStatement(moduleId(), key);
}

void Fcxx::rowsLoaded()
{
    for (int row = VS().FixedRows(); row < VS().Rows(); ++row) {
        if (leadingNumber(VS().cell(row, ListingAttachments)) > 0)
            VS().setCellPicture(row, ListingMarker, attachmentIcon(), VSFlexGrid::AlignCentre);
    }
}

void Fcxx::openEditor(HostApp &host, const QString &key, bool isRestricted)
{
    // Who may not edit does not see the owner.
    m_editor->py_Init(host, moduleId(), key, isRestricted);
}

QString Fcxx::copyCaption() const
{
    return u"复制为新房源(&W)…"_s;
}

void Fcxx::openCopy(HostApp &host, const QString &key)
{
    m_editor->openCopy(host, moduleId(), key);
}

void Fcxx::openFollowUpEditor(HostApp &host, const QString &owner)
{
    m_followUpEditor->setOwnerNumber(currentNumber());
    m_followUpEditor->py_Init(host, owner, {}, false);
}

/// Follow-ups first. Attachments and pictures are left in the database.
RecordList::Deletion Fcxx::deletion(const QString &key) const
{
    return {{deletionFrom(u"fygj"_s, key), deletionFrom(u"fyxx"_s, key)}, 1};
}

void Fcxx::mFrmFx_ReturnData(const QString &psID, bool pbNew)
{
    trapped(u"-->mFrmFx_ReturnData::", [&] {
        showSaved(psID, pbNew);
        showDetailOfNumber();
        if (pbNew)
            m_detail.showCurrent(); // its row became current before it had a key
        return true;
    });
}

/// The key is a GUID and its leading number no listing's key, so the tabs show nothing new until the row
/// changes. That is deliberate: what was just saved need not be read again.
void Fcxx::showDetailOfNumber()
{
    if (!isRowValid())
        return;
    if (const QString listing = keyOf(VS().Row()); !listing.isEmpty())
        m_detail.ShowDetail(PlainDecimal(Val(listing)));
}

/// Each filter adds its own leading blanks, also the first one.
QString Fcxx::printSubtitle()
{
    QString text;
    const auto add = [&](QStringView caption, int field) {
        if (const QString filter = qzTxt(field).Text(); !filter.isEmpty())
            text += caption.toString() + filter;
    };
    add(u"城区：", ListingFilter::District);
    add(u"     楼盘：", ListingFilter::Building);
    add(u"\t房型：", ListingFilter::Rooms);
    return text + u'\r';
}

} // namespace ebtq
