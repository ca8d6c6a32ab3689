#pragma once

#include "library/frame/host_contracts.h"

#include <QSet>
#include <QStringList>

#include <functional>
#include <map>

namespace ebtq::test {

/// A host without a database: records what a module asks of it, in order, and answers what the test says.
class RecordingHost : public HostApp
{
public:
    /// A picker whose list always ends in the same choice, or in none while the value is invalid.
    class Picker : public HostPicker
    {
    public:
        Picker(RecordingHost &host, QString name)
            : m_host(host)
            , m_name(std::move(name))
        {}
        ParameterList &Parameters() override { return m_parameters; }
        bool Show(int left, int top, QString &text, QVariant &value, int, const QString &) override;
        [[nodiscard]] std::shared_ptr<const PickedRow> Objects() const override { return nullptr; }
        bool Validate(const QString &, const QString &, const QString &, const QString &typedText,
                      QVariant &value, QString &text) override;
        [[nodiscard]] bool Ready(int) const override { return ready; }

        bool ready = true;
        QString chosenText;
        QVariant chosenValue;

    private:
        bool use(const QString &operation, QString &text, QVariant &value);
        RecordingHost &m_host;
        QString m_name;
        ParameterList m_parameters;
    };

    /// Without a print engine and a folder until the test gives them.
    class Printing : public HostPrintEnv
    {
    public:
        [[nodiscard]] QObject *PrintContext() override { return context; }
        [[nodiscard]] QString PrintFolder() const override { return folder; }

        QObject *context = nullptr;
        QString folder;
    };

    RecordingHost();

    Printing printing;
    /// Answers a statement; what it throws becomes the database's LastError. Without rows by default.
    std::function<RowBlock(const SqlText &)> answer = [](const SqlText &) { return RowBlock(); };
    QSet<int> refusedRights;
    QString wheelRate;
    QVariant judgedValue;
    QString judgedText;
    bool parametersFail = false;

    [[nodiscard]] const QStringList &calls() const { return m_calls; }
    [[nodiscard]] const QList<SqlText> &statements() const { return m_statements; }
    [[nodiscard]] int releases() const { return static_cast<int>(m_calls.count(u"release")); }
    void forget();
    class Picker &pickerNamed(const QString &name);

    HostDb &Db() override { return *m_db; }
    HostPrintEnv &PrintEnv() override { return printing; }
    [[nodiscard]] HostErrorInfo LastError() const override { return {}; }
    std::unique_ptr<HostRights> Rights(int moduleId) override;
    HostParameter SystemParameter(int, const QVariant &) override { return {}; }
    HostParameter UserParameter(int group, const QVariant &key) override;
    bool ShowHelp(const QString &key, const QVariant &field, const QVariant &left, const QVariant &top,
                  int flag) override;
    bool JudgeText(const QString &base, const QString &valueField, const QString &textField,
                   const QString &typedText, QVariant &value, QString &text) override;
    bool NewBillCode(int, const QDate &, QString &, bool) override { return false; }
    HostSession &Session() override;
    HostPicker &Picker(const QString &name) override { return pickerNamed(name); }
    HostFormStyler &FormStyler() override;

private:
    class Database;
    class Query;
    void record(const QString &call) { m_calls.append(call); }

    QStringList m_calls;
    QList<SqlText> m_statements;
    std::unique_ptr<HostDb> m_db;
    std::map<QString, std::unique_ptr<class Picker>> m_pickers;
};

} // namespace ebtq::test
