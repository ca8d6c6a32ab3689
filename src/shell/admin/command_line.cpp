#include "shell/admin/command_line.h"

#include "database/connection.h"

#include <limits>

namespace ebtq::admin {

namespace {

constexpr int largestCount = 10'000'000;

QCommandLineOption optionOf(QStringView entry)
{
    const auto parts = entry.split(u'=');
    const QString name = parts.first().toString();
    return parts.size() == 1 ? QCommandLineOption(name)
                             : QCommandLineOption(name, {}, parts.last().toString());
}

/// Why the arguments are refused: only the last option can lack its value, so what remains is a value for an
/// option that takes none.
QString mistakeIn(const QCommandLineParser &parser, const CommandDefinition &command,
                  const QStringList &arguments)
{
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty())
        return QStringLiteral("没有选项“%1”").arg(unknown.join(u"”、“"));
    const QString &last = arguments.constLast();
    for (const QStringView entry : command.options.split(u' ', Qt::SkipEmptyParts)) {
        const auto parts = entry.split(u'=');
        if (parts.size() == 2 && last == QStringLiteral("--%1").arg(parts.first()))
            return QStringLiteral("选项 %1 后缺少%2").arg(last, parts.last());
    }
    return QStringLiteral("不带值的选项后多了值");
}

} // namespace

CommandLine::CommandLine(const CommandDefinition &command, const QStringList &arguments)
{
    for (const QStringView entry : command.options.split(u' ', Qt::SkipEmptyParts))
        m_parser.addOption(optionOf(entry));
    if (!m_parser.parse(QStringList{QString()} + arguments))
        throw UsageError(mistakeIn(m_parser, command, arguments));
    const qsizetype allowed = command.argument.isEmpty() ? 0 : 1;
    if (m_parser.positionalArguments().size() > allowed)
        throw UsageError(QStringLiteral("多余的参数：%1")
                             .arg(db::Connection::shownLocation(m_parser.positionalArguments().at(allowed))));
}

QString CommandLine::requiredText(const QString &option) const
{
    const QString value = text(option);
    if (value.isEmpty())
        throw UsageError(QStringLiteral("缺少选项 --%1").arg(option));
    return value;
}

int CommandLine::count(const QString &option, int preset) const
{
    if (!isSet(option))
        return preset;
    bool read = false;
    const int value = text(option).toInt(&read);
    if (!read || value < 0 || value > largestCount)
        throw UsageError(QStringLiteral("选项 --%1 应为 0 到 %2 的整数").arg(option).arg(largestCount));
    return value;
}

quint64 CommandLine::seed(const QString &option, quint64 preset) const
{
    if (!isSet(option))
        return preset;
    bool read = false;
    const quint64 value = text(option).toULongLong(&read);
    if (!read)
        throw UsageError(QStringLiteral("选项 --%1 应为不带正负号的整数，最大 %2")
                             .arg(option)
                             .arg(std::numeric_limits<quint64>::max()));
    return value;
}

QDate CommandLine::date(const QString &option, const QDate &preset) const
{
    if (!isSet(option))
        return preset;
    const QDate value = QDate::fromString(text(option), Qt::ISODate);
    if (!value.isValid())
        throw UsageError(QStringLiteral("选项 --%1 应为日期，如 2026-11-24").arg(option));
    return value;
}

QString CommandLine::argument() const
{
    if (!hasArgument())
        throw UsageError(QStringLiteral("缺少语句"));
    return m_parser.positionalArguments().constFirst();
}

} // namespace ebtq::admin
