#include "engine.h"

#include "server_statements.h"
#include "statement_trace.h"

namespace ebtq::bench {

namespace {

Engine embedded(sqlite3 *handle)
{
    return {[handle](const QByteArray &text) { runBare(handle, text); },
            [handle](const QByteArray &text) { return planOf(handle, text); }, false, "sqlite"};
}

Engine server(db::PostgresConnection &connection)
{
    return {[handle = connection.handle()](const QByteArray &text) { readFromServer(handle, text); },
            [&connection](const QByteArray &text) {
                QByteArray plan;
                const RowBlock rows = connection.queryNative("explain (costs off) " + text);
                for (qsizetype row = 0; row < rows.rowCount(); ++row)
                    plan += rows.value(row, 0).toString().toUtf8() + '\n';
                return plan;
            },
            true, "postgresql"};
}

} // namespace

Engine engineOf(Agency &agency)
{
    return agency.isOnServer() ? server(agency.server()) : embedded(agency.connection().handle());
}

} // namespace ebtq::bench
