#include "shell/admin/orphans.h"

namespace ebtq::admin {

namespace {

struct Relation
{
    QStringView table;
    QStringView column;
    QStringView target;
    QStringView key;
};

/// 0 is stored for a typed name that is in no dictionary; it is no reference.
constexpr Relation relations[] = {
    {u"pdmdz", u"楼盘ID", u"pdmlpzd", u"楼盘ID"}, {u"pdmlpzd", u"地区ID", u"pdmdq", u"地区ID"},
    {u"fyxx", u"地区ID", u"pdmdq", u"地区ID"},    {u"fyxx", u"楼盘ID", u"pdmlpzd", u"楼盘ID"},
    {u"fyxx", u"栋座ID", u"pdmdz", u"栋座ID"},    {u"fyxx", u"业务员ID", u"pdmgy", u"雇员ID"},
    {u"fykh", u"地区ID", u"pdmdq", u"地区ID"},    {u"fykh", u"业务员ID", u"pdmgy", u"雇员ID"},
    {u"fygj", u"业务员ID", u"pdmgy", u"雇员ID"},  {u"su_membership", u"UserTypeID", u"su_usertype", u"mtID"},
};

/// The owner of these is a listing or a customer.
constexpr Relation ownedByEither[] = {
    {u"fygj", u"房源ID", u"", u""},
    {u"pubAttach", u"IDs", u"", u""},
};

QString orphansOf(const Relation &relation)
{
    return QStringLiteral("select count(*) from %1 where %2<>0 and %2 not in(select %4 from %3)")
        .arg(relation.table, relation.column, relation.target, relation.key);
}

QString orphansOfEither(const Relation &relation)
{
    return QStringLiteral(
               "select count(*) from %1 where %2 not in(select 房源ID from fyxx) and %2 not in(select "
               "客源ID from fykh)")
        .arg(relation.table, relation.column);
}

} // namespace

QStringList countOrphans(db::Connection &connection)
{
    QStringList lines;
    const auto count = [&](const Relation &relation, const QString &statement) {
        const qlonglong found = connection.query(statement).value(0, 0).toLongLong();
        if (found > 0)
            lines << QStringLiteral("%1.%2 有 %3 行指向不存在的记录")
                         .arg(relation.table, relation.column)
                         .arg(found);
    };
    for (const Relation &relation : relations)
        count(relation, orphansOf(relation));
    for (const Relation &relation : ownedByEither)
        count(relation, orphansOfEither(relation));
    return lines;
}

} // namespace ebtq::admin
