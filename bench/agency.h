#pragma once

#include "benchmarks.h"
#include "database/postgresql/postgres_connection.h"
#include "database/sqlite/sqlite_connection.h"
#include "host/application.h"
#include "library/frame/desktop.h"

#include <QTemporaryDir>

#include <memory>

namespace ebtq::bench {

/// An agency of a given size in a temporary database or an empty base on a server, with a host over it that
/// nobody sits in front of.
class Agency
{
public:
    explicit Agency(const Options &options);
    ~Agency();

    [[nodiscard]] db::Connection &database() { return *m_connection; }
    [[nodiscard]] bool isOnServer() const { return db::PostgresAddress::isUrl(m_file); }
    /// Throws when the agency lies on a server.
    [[nodiscard]] db::SqliteConnection &connection();
    /// Throws when it does not.
    [[nodiscard]] db::PostgresConnection &server();
    [[nodiscard]] host::Application &app() { return *m_app; }
    [[nodiscard]] Desktop &desktop() { return *m_desktop; }
    [[nodiscard]] QString file() const { return m_file; }

private:
    QTemporaryDir m_folder;
    QString m_file;
    std::unique_ptr<db::Connection> m_connection;
    std::unique_ptr<host::PanelPresenter> m_presenter;
    std::unique_ptr<host::Application> m_app;
    std::unique_ptr<Desktop> m_desktop;
};

} // namespace ebtq::bench
