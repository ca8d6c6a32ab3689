#include "agency.h"

#include "agents/nobodys_desktop.h"
#include "database/schema/installer.h"
#include "host/demo/demo.h"
#include "host/module_ids.h"

#include <QJsonObject>

namespace ebtq::bench {

namespace {

/// Nobody is there to choose.
class NoPanels final : public host::PanelPresenter
{
public:
    std::optional<qsizetype> choose(const host::Panel &) override { return std::nullopt; }
    std::optional<QDate> chooseDate(const QDate &, int, int) override { return std::nullopt; }
};

host::DemoOptions demoOptions(const Options &options)
{
    host::DemoOptions demo;
    demo.listings = options.rows;
    demo.customers = options.customers;
    demo.followUps = options.followUps;
    demo.today = QDate(2026, 11, 22);
    return demo;
}

} // namespace

Agency::Agency(const Options &options)
    : m_file(options.database.isEmpty() ? m_folder.filePath(QStringLiteral("agency.db")) : options.database)
    , m_connection(db::Connection::open(m_file, db::Connection::Missing::IsCreated))
    , m_presenter(std::make_unique<NoPanels>())
    , m_desktop(std::make_unique<NobodysDesktop>())
{
    const bool isEmptyServer = isOnServer() && !m_connection->catalog().table(u"host_schema");
    if (options.database.isEmpty() || isEmptyServer) {
        db::install(*m_connection);
        host::writeDemo(*m_connection, demoOptions(options));
    }
    const host::User user{QStringLiteral("bench"), QStringLiteral("bench"), {}};
    const host::Settings settings{m_folder.filePath(QStringLiteral("work")), QDate(2026, 11, 22)};
    m_app = std::make_unique<host::Application>(*m_connection, user, settings, *m_presenter);
}

Agency::~Agency() = default;

db::SqliteConnection &Agency::connection()
{
    auto *connection = dynamic_cast<db::SqliteConnection *>(m_connection.get());
    if (!connection)
        throw std::runtime_error("this benchmark is for the embedded engine only");
    return *connection;
}

db::PostgresConnection &Agency::server()
{
    auto *connection = dynamic_cast<db::PostgresConnection *>(m_connection.get());
    if (!connection)
        throw std::runtime_error("this benchmark is for a server only");
    return *connection;
}

} // namespace ebtq::bench
