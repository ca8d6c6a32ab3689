#pragma once

#include <QByteArray>

#include <functional>
#include <string_view>

struct pg_conn;

namespace ebtq::bench {

/// Runs a statement through libpq alone; `take` gets each cell. Throws std::runtime_error.
void fetchFromServer(pg_conn *handle, const QByteArray &sql,
                     const std::function<void(int row, int column, std::string_view cell)> &take);

/// Every value looked at: the least that a program can do which is handed that text.
void readFromServer(pg_conn *handle, const QByteArray &sql);

/// The rows by `copy`, each looked at as a whole: the quickest way out of a server.
void copyFromServer(pg_conn *handle, const QByteArray &sql);

} // namespace ebtq::bench
