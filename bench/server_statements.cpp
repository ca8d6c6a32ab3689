#include "server_statements.h"

#include "measure.h"

#include <libpq-fe.h>

#include <stdexcept>

namespace ebtq::bench {

namespace {

/// Row by row, which costs libpq less than one result of all rows; `take` gets each cell.
template<class Take> void fetch(PGconn *handle, const QByteArray &sql, Take take)
{
    PQsendQueryParams(handle, sql.constData(), 0, nullptr, nullptr, nullptr, nullptr, 0);
    PQsetSingleRowMode(handle);
    int number = 0;
    while (PGresult *result = PQgetResult(handle)) {
        if (PQresultStatus(result) == PGRES_FATAL_ERROR)
            throw std::runtime_error(PQresultErrorMessage(result));
        for (int row = 0; row < PQntuples(result); ++row, ++number) {
            for (int column = 0; column < PQnfields(result); ++column)
                take(number, column,
                     std::string_view(PQgetvalue(result, row, column),
                                      static_cast<size_t>(PQgetlength(result, row, column))));
        }
        PQclear(result);
    }
}

} // namespace

void fetchFromServer(pg_conn *handle, const QByteArray &sql,
                     const std::function<void(int row, int column, std::string_view cell)> &take)
{
    fetch(handle, sql, take);
}

void readFromServer(pg_conn *handle, const QByteArray &sql)
{
    size_t bytes = 0;
    fetch(handle, sql, [&](int, int, std::string_view cell) { bytes += cell.size(); });
    keep(bytes);
}

void copyFromServer(pg_conn *handle, const QByteArray &sql)
{
    PQclear(PQexec(handle, ("copy (" + sql + ") to stdout").constData()));
    size_t bytes = 0;
    char *row = nullptr;
    for (int size = PQgetCopyData(handle, &row, 0); size > 0; size = PQgetCopyData(handle, &row, 0)) {
        bytes += static_cast<size_t>(size);
        PQfreemem(row);
    }
    PGresult *end = PQgetResult(handle);
    const bool isGood = PQresultStatus(end) == PGRES_COMMAND_OK;
    PQclear(end);
    while (PGresult *rest = PQgetResult(handle))
        PQclear(rest);
    if (!isGood)
        throw std::runtime_error(PQerrorMessage(handle));
    keep(bytes);
}

} // namespace ebtq::bench
