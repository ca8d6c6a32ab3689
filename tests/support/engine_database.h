#pragma once

#include "database/connection.h"

#include <memory>

namespace ebtq::test {

enum class Engine { Sqlite, Postgres };

/// An empty database of the engine that lives as long as this.
class EngineDatabase
{
public:
    explicit EngineDatabase(Engine engine);
    ~EngineDatabase();
    EngineDatabase(const EngineDatabase &) = delete;
    EngineDatabase &operator=(const EngineDatabase &) = delete;
    [[nodiscard]] std::unique_ptr<db::Connection> connect() const;
    [[nodiscard]] const QString &location() const { return m_location; }

private:
    struct Place;
    std::unique_ptr<Place> m_place;
    QString m_location;
};

[[nodiscard]] std::string nameOf(Engine engine);

} // namespace ebtq::test
