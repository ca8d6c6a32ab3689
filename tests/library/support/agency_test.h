#pragma once

#include "host/application.h"
#include "host/host_fixture.h"
#include "support/scripted_desktop.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace ebtq::test {

/// The reference host with every statement written down as the module gives it.
class WatchedHost : public host::Application
{
public:
    using Application::Application;
    HostDb &Db() override { return m_db; }

    QStringList statements;
    SqlText lastStatement;
    int releases = 0;
    bool losesAnswer = false; ///< of the next commits, which are done
    /// What is run for a statement.
    std::function<SqlText(const SqlText &)> asRun = [](const SqlText &sql) { return sql; };

private:
    struct WatchedDb : HostDb
    {
        WatchedDb(HostDb &db, WatchedHost &owner)
            : real(db)
            , watched(owner)
        {}
        std::unique_ptr<HostQuery> CreateQuery(const SqlText &sql, int mode) override
        {
            watched.statements.append(sql.text());
            watched.lastStatement = sql;
            return real.CreateQuery(watched.asRun(sql), mode);
        }
        bool Release() override
        {
            ++watched.releases;
            depth = 0;
            return real.Release();
        }
        void BeginTrans() override
        {
            real.BeginTrans();
            ++depth;
        }
        void CommitTrans() override
        {
            real.CommitTrans();
            if (--depth == 0 && watched.losesAnswer)
                throw Failure(u"连接已断开！"_qs);
        }
        void RollbackTrans() override
        {
            depth = 0;
            real.RollbackTrans();
        }
        [[nodiscard]] HostDbError LastError() const override { return real.LastError(); }
        [[nodiscard]] int ConnectionNumber() const override { return real.ConnectionNumber(); }
        HostDb &real;
        WatchedHost &watched;
        int depth = 0;
    };
    WatchedDb m_db{Application::Db(), *this};
};

/// How all pickers end, and what they were asked with.
struct PickerScript
{
    QStringList asked;
    QString text;
    QVariant value; ///< invalid: left without a choice, nothing found
    std::shared_ptr<const PickedRow> row;
    bool ready = true;
    QString textBefore = {}; ///< of the field that a panel was shown for
};

class ScriptedPicker : public HostPicker
{
public:
    ScriptedPicker(QString name, PickerScript &script)
        : m_name(std::move(name))
        , m_script(script)
    {}
    ParameterList &Parameters() override { return m_parameters; }
    bool Show(int left, int top, QString &text, QVariant &value, int, const QString &) override
    {
        m_script.textBefore = text;
        return finish(u"show %1 %2 %3"_qs.arg(m_name).arg(left).arg(top), text, value);
    }
    [[nodiscard]] std::shared_ptr<const PickedRow> Objects() const override { return m_script.row; }
    bool Validate(const QString &, const QString &, const QString &, const QString &typedText,
                  QVariant &value, QString &text) override
    {
        return finish(u"validate %1 %2"_qs.arg(m_name, typedText), text, value);
    }
    [[nodiscard]] bool Ready(int) const override { return m_script.ready; }

private:
    bool finish(QString call, QString &text, QVariant &value);
    QString m_name;
    PickerScript &m_script;
    ParameterList m_parameters;
};

/// An agency's database in memory with a host over it; the person and the pickers are scripted.
class AgencyTest : public ::testing::Test
{
protected:
    explicit AgencyTest(const QString &file = u":memory:"_qs);

    /// Each row as "table (columns) values (...)".
    void insert(std::initializer_list<const char16_t *> rows);
    /// Rows of one table, given as "table (columns)".
    void insert(const QString &table, std::initializer_list<const char16_t *> values);
    [[nodiscard]] RowBlock rows(const QString &sql) const { return connection->query(sql); }
    void setRight(int right, bool allowed);
    /// Writes an entry of the layout file.
    void put(const QString &section, const QString &key, const QString &value) const;
    /// A host over a copy of the database as it stands that nobody can write.
    [[nodiscard]] host::Application &sealedHost();
    /// What was asked since the last call.
    [[nodiscard]] QStringList asked();

    QTemporaryDir folder;
    QString layoutFile = folder.filePath(u"Fcxx.txt"_qs);
    std::unique_ptr<db::Connection> connection;
    ScriptedPanels panels;
    WatchedHost app{
        *connection, {u"U1"_qs, u"张敏"_qs, u"营业一部"_qs}, {folder.path(), QDate(2026, 11, 22)}, panels};
    ScriptedDesktop desktop;
    PickerScript script;
    QStringList events;

private:
    qsizetype m_askedBefore = 0;
    std::unique_ptr<db::Connection> m_sealed;
    std::unique_ptr<host::Application> m_sealedHost;
};

} // namespace ebtq::test
