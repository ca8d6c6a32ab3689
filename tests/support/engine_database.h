#pragma once

#include "database/connection.h"

#include <gtest/gtest.h>

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

/// A test that runs on each engine, once it is instantiated with ON_EACH_ENGINE.
class EngineTest : public ::testing::TestWithParam<Engine>
{
protected:
    [[nodiscard]] std::unique_ptr<db::Connection> connect() const { return m_database.connect(); }
    [[nodiscard]] const QString &location() const { return m_database.location(); }

private:
    EngineDatabase m_database{GetParam()};
};

#define ON_EACH_ENGINE(Suite)                                                                                \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite, ::testing::Values(Engine::Sqlite, Engine::Postgres),            \
                             [](const auto &engine) { return nameOf(engine.param); })

} // namespace ebtq::test
