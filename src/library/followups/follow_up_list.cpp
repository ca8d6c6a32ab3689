#include "library/followups/follow_up_list.h"

#include "contracts/null_conv.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

struct Wanted
{
    QString text;
    GridFind::Direction direction = GridFind::Forward;
};

Wanted wantedBy(const QVariant &condition)
{
    if (condition.typeId() !=
        QMetaType::QVariantList) // a text would be converted to a list of its characters
        return {NullConv::ToText(condition)};
    const QVariantList parts = condition.toList();
    const bool isBackward = NullConv::ToLong(parts.value(1)) < 0;
    return {NullConv::ToText(parts.value(0)), isBackward ? GridFind::Backward : GridFind::Forward};
}

} // namespace

FollowUpList::FollowUpList(const QString &name, Desktop &desktop, FailureNames failures,
                           const ListTables &tables)
    : ListModule(name, desktop, std::move(failures), tables)
    , m_find(VS())
{
    connect(&VS(), &VSFlexGrid::MouseDown, this, &FollowUpList::VsMouseDown);
}

bool FollowUpList::IReportUI_Find(const QVariant &condition)
{
    const Wanted wanted = wantedBy(condition);
    return tell(m_find.find(wanted.text, wanted.direction));
}

bool FollowUpList::IReportUI_FindNext()
{
    return tell(m_find.findNext());
}

bool FollowUpList::tell(const GridFind::Hit &hit)
{
    if (m_find.text().isEmpty())
        return false;
    if (hit.number == 0) {
        Q_EMIT Message(u"没有找到："_s + m_find.text());
        return false;
    }
    const QString place =
        u"“%1”：第%2条，共%3条"_s.arg(m_find.text(), QString::number(hit.number), QString::number(hit.count));
    Q_EMIT Message(hit.isWrapped ? place + u"（已到尽头，从另一端继续）"_s : place);
    return true;
}

bool FollowUpList::IReportUI_Filter(const QVariant &condition)
{
    const QString text = NullConv::ToText(condition);
    const int rows = m_find.filter(text);
    if (!text.isEmpty())
        Q_EMIT Message(u"“%1”：共%2条"_s.arg(text, QString::number(rows)));
    return true;
}

} // namespace ebtq
