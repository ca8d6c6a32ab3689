#include "library/support/recording_host.h"

#include <exception>

namespace ebtq::test {

namespace {

class BlockRows : public Recordset
{
public:
    explicit BlockRows(RowBlock rows)
        : m_rows(std::move(rows))
    {}
    [[nodiscard]] int RecordCount() const override { return static_cast<int>(m_rows.rowCount()); }
    [[nodiscard]] bool Eof() const override { return RecordCount() == 0; }
    [[nodiscard]] bool Bof() const override { return RecordCount() == 0; }
    void MoveNext() override { throw Failure(QStringLiteral("not asked for by a list")); }
    [[nodiscard]] Field Fields(const QString &name) const override { throw Failure(name); }
    [[nodiscard]] RowBlock GetRows() override { return std::move(m_rows); }
    void Close() override {}

private:
    RowBlock m_rows;
};

[[noreturn]] void notOfThisHost()
{
    throw Failure(QStringLiteral("this host has none"));
}

} // namespace

class RecordingHost::Database : public HostDb
{
public:
    explicit Database(RecordingHost &host)
        : m_host(host)
    {}
    std::unique_ptr<HostQuery> CreateQuery(const SqlText &sql, int mode) override;
    bool Release() override
    {
        m_host.record(QStringLiteral("release"));
        return true;
    }
    void BeginTrans() override { notOfThisHost(); }
    void CommitTrans() override { notOfThisHost(); }
    void RollbackTrans() override { notOfThisHost(); }
    [[nodiscard]] HostDbError LastError() const override { return m_lastError; }

private:
    friend class RecordingHost::Query;
    RecordingHost &m_host;
    HostDbError m_lastError;
};

class RecordingHost::Query : public HostQuery
{
public:
    Query(Database &database, SqlText sql)
        : m_database(database)
        , m_sql(std::move(sql))
    {}
    void Execute(const QVariant &) override { notOfThisHost(); }
    QVariant Scalar(const QVariant &) override { notOfThisHost(); }
    std::unique_ptr<Recordset> Open(const QVariant &) override
    {
        m_database.m_host.record(QStringLiteral("open"));
        m_database.m_host.m_statements.append(m_sql);
        m_database.m_lastError = {};
        try {
            return std::make_unique<BlockRows>(m_database.m_host.answer(m_sql));
        } catch (const std::exception &failure) {
            m_database.m_lastError = {QString::fromUtf8(failure.what())};
            return std::make_unique<BlockRows>(RowBlock());
        }
    }

private:
    Database &m_database;
    SqlText m_sql;
};

std::unique_ptr<HostQuery> RecordingHost::Database::CreateQuery(const SqlText &sql, int)
{
    return std::make_unique<Query>(*this, sql);
}

RecordingHost::RecordingHost()
    : m_db(std::make_unique<Database>(*this))
{}

void RecordingHost::forget()
{
    m_calls.clear();
    m_statements.clear();
}

class RecordingHost::Picker &RecordingHost::pickerNamed(const QString &name)
{
    auto &picker = m_pickers[name];
    if (!picker)
        picker = std::make_unique<class Picker>(*this, name);
    return *picker;
}

HostSession &RecordingHost::Session()
{
    notOfThisHost();
}

HostFormStyler &RecordingHost::FormStyler()
{
    notOfThisHost();
}

std::unique_ptr<HostRights> RecordingHost::Rights(int moduleId)
{
    class Allowance : public HostRights
    {
    public:
        explicit Allowance(QSet<int> refused)
            : m_refused(std::move(refused))
        {}
        [[nodiscard]] bool Allowed(int right) const override { return !m_refused.contains(right); }

    private:
        QSet<int> m_refused;
    };
    record(QStringLiteral("rights %1").arg(moduleId));
    return std::make_unique<Allowance>(refusedRights);
}

HostParameter RecordingHost::UserParameter(int group, const QVariant &key)
{
    if (parametersFail)
        throw Failure(QStringLiteral("参数表不可用"));
    const bool wheel = group == 12 && key.toString() == u"mouseeventscrollrate";
    return {wheel ? wheelRate : QString()};
}

bool RecordingHost::ShowHelp(const QString &key, const QVariant &field, const QVariant &left,
                             const QVariant &top, int flag)
{
    QObject *control = field.value<QObject *>();
    record(QStringLiteral("help %1 %2 %3 %4 %5")
               .arg(key, control->property("Index").toString(), left.toString(), top.toString())
               .arg(flag));
    return control->setProperty("Text", judgedText) && control->setProperty("Value", judgedValue);
}

bool RecordingHost::JudgeText(const QString &base, const QString &valueField, const QString &textField,
                              const QString &typedText, QVariant &value, QString &text)
{
    record(QStringLiteral("judge %1|%2|%3|%4").arg(base, valueField, textField, typedText));
    value = judgedValue;
    text = judgedText;
    return true;
}

bool RecordingHost::Picker::Show(int left, int top, QString &text, QVariant &value, int, const QString &)
{
    return use(QStringLiteral("show %1 %2 %3 '%4'").arg(m_name).arg(left).arg(top).arg(text), text, value);
}

bool RecordingHost::Picker::Validate(const QString &, const QString &, const QString &,
                                     const QString &typedText, QVariant &value, QString &text)
{
    return use(QStringLiteral("validate %1 '%2'").arg(m_name, typedText), text, value);
}

bool RecordingHost::Picker::use(const QString &operation, QString &text, QVariant &value)
{
    QString call = operation;
    for (const QString &name : {QStringLiteral("pdmsfmx"), QStringLiteral("组织类型"), QStringLiteral("lock"),
                                QStringLiteral("地区")}) {
        if (m_parameters.Exists(name))
            call += u' ' + name + u'=' + m_parameters.text(name);
    }
    m_host.record(call);
    if (!chosenValue.isValid())
        return false;
    text = chosenText;
    value = chosenValue;
    return true;
}

} // namespace ebtq::test
