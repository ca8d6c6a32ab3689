#pragma once

#include <QString>

#include <functional>
#include <memory>

struct sqlite3;

namespace ebtq::db {

/// How many of how many pages were copied.
using PageProgress = std::function<void(int done, int total)>;

/// The file of an embedded database for work on it as a whole, without the system's settings and functions.
/// Every operation throws DatabaseError.
class WholeFile
{
public:
    enum class Access { Reads, Writes };

    WholeFile(const QString &path, Access access);

    /// Runs statements of the engine.
    void run(const QByteArray &script);
    /// Takes the pages of another database, over what is here, in the state that its connection reads: when
    /// that has a transaction open, other programs' writes neither get in nor make it begin anew.
    void takePages(sqlite3 *source, const PageProgress &progress);
    /// Moves what stands in a log into the file and keeps every other program out until this object ends.
    /// False when a program has the database open. A file that is damaged or no database cannot be kept; it
    /// counts as free.
    [[nodiscard]] bool seize();

    [[nodiscard]] sqlite3 *handle() const { return m_handle.get(); }

private:
    struct Closer
    {
        void operator()(sqlite3 *handle) const;
    };
    std::unique_ptr<sqlite3, Closer> m_handle;
};

} // namespace ebtq::db
