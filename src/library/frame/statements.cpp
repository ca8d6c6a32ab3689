#include "library/frame/statements.h"

namespace ebtq {

namespace {

void requireSuccess(const HostDb &db)
{
    if (const QString error = db.LastError().Description; !error.isEmpty())
        throw StatementFailure(error);
}

} // namespace

std::unique_ptr<Recordset> openRows(HostDb &db, const SqlText &sql)
{
    auto rows = db.CreateQuery(sql)->Open();
    requireSuccess(db);
    return rows;
}

std::unique_ptr<HostQuery> executeStatement(HostDb &db, const SqlText &sql)
{
    auto query = db.CreateQuery(sql);
    query->Execute();
    requireSuccess(db);
    return query;
}

QVariant singleValue(HostDb &db, const SqlText &sql)
{
    QVariant value = db.CreateQuery(sql)->Scalar();
    requireSuccess(db);
    return value;
}

} // namespace ebtq
