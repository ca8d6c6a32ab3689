#pragma once

#include <QCommandLineParser>
#include <QDate>
#include <QString>
#include <QStringList>

#include <stdexcept>

namespace ebtq::admin {

/// Invalid arguments: the help is shown and the exit status is 2.
class UsageError : public std::runtime_error
{
public:
    explicit UsageError(const QString &text)
        : std::runtime_error(text.toStdString())
    {}
};

/// One command as data.
struct CommandDefinition
{
    QStringView name;
    QStringView description;
    QStringView
        options; ///< names separated by blanks, followed by "=" and a word for the value if they take one
    QStringView argument; ///< name of the one argument; empty for none
};

/// The options and the argument of a call. Every accessor throws UsageError for invalid input.
class CommandLine
{
public:
    CommandLine(const CommandDefinition &command, const QStringList &arguments);

    [[nodiscard]] bool isSet(const QString &option) const { return m_parser.isSet(option); }
    [[nodiscard]] QString text(const QString &option) const { return m_parser.value(option); }
    [[nodiscard]] QString requiredText(const QString &option) const;
    [[nodiscard]] int count(const QString &option, int preset) const;
    /// Any unsigned 64-bit number: a seed is no count and has no limit of its own.
    [[nodiscard]] quint64 seed(const QString &option, quint64 preset) const;
    [[nodiscard]] QDate date(const QString &option, const QDate &preset) const;
    [[nodiscard]] QString argument() const;
    [[nodiscard]] bool hasArgument() const { return !m_parser.positionalArguments().isEmpty(); }

private:
    QCommandLineParser m_parser;
};

} // namespace ebtq::admin
