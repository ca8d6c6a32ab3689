#include "support/engine_database.h"

#include "support/postgres_base.h"

#include <QTemporaryDir>

#include <optional>

namespace ebtq::test {

struct EngineDatabase::Place
{
    std::optional<QTemporaryDir> folder;
    std::optional<PostgresBase> base;
};

EngineDatabase::EngineDatabase(Engine engine)
    : m_place(std::make_unique<Place>())
{
    if (engine == Engine::Postgres)
        m_location = m_place->base.emplace().url();
    else
        m_location = m_place->folder.emplace().filePath(u"test.db"_qs);
}

EngineDatabase::~EngineDatabase() = default;

std::unique_ptr<db::Connection> EngineDatabase::connect() const
{
    return db::Connection::open(m_location, db::Connection::Missing::IsCreated);
}

std::string nameOf(Engine engine)
{
    return engine == Engine::Postgres ? "PostgreSQL" : "SQLite";
}

} // namespace ebtq::test
