#include "database/transfer/whole_file.h"

#include "database/connection.h"
#include "database/sqlite/file_state.h"
#include "database/sqlite/sqlite_error.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

/// Small enough for progress that is worth showing: 4 MB of our pages.
constexpr int pagesOfStep = 256;

constexpr int lockTimeout = 2000;

} // namespace

void WholeFile::Closer::operator()(sqlite3 *handle) const
{
    sqlite3_close_v2(handle);
}

WholeFile::WholeFile(const QString &path, Access access)
{
    sqlite3 *handle = nullptr;
    const int flags = access == Access::Reads ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    const int result = sqlite3_open_v2(path.toUtf8().constData(), &handle, flags, nullptr);
    m_handle.reset(handle);
    if (result != SQLITE_OK)
        throw DatabaseError(u"%1：%2"_s.arg(sqliteErrorText(handle), path));
    distrust(handle);
    sqlite3_busy_timeout(handle, lockTimeout);
}

void WholeFile::run(const QByteArray &script)
{
    if (sqlite3_exec(m_handle.get(), script.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw DatabaseError(sqliteErrorText(m_handle.get()));
}

void WholeFile::takePages(sqlite3 *source, const PageProgress &progress)
{
    sqlite3_backup *backup = sqlite3_backup_init(m_handle.get(), "main", source, "main");
    int result = backup ? SQLITE_OK : SQLITE_ERROR;
    while (result == SQLITE_OK) {
        result = sqlite3_backup_step(backup, pagesOfStep);
        const int total = sqlite3_backup_pagecount(backup);
        if (progress)
            progress(total - sqlite3_backup_remaining(backup), total);
    }
    // Leaves the reason with the handle of the target.
    sqlite3_backup_finish(backup);
    if (result != SQLITE_DONE)
        throw DatabaseError(sqliteErrorText(m_handle.get()));
}

bool WholeFile::seize()
{
    for (const char *statement : {"pragma journal_mode=delete", "begin exclusive"}) {
        const int result = sqlite3_exec(m_handle.get(), statement, nullptr, nullptr, nullptr) & 0xff;
        if (result != SQLITE_OK)
            return result != SQLITE_BUSY && result != SQLITE_LOCKED;
    }
    return true;
}

} // namespace ebtq::db
