#include "shell/admin/statements.h"

#include "shell/admin/output.h"
#include "shell/admin/row_printer.h"
#include "shell/admin/utf8.h"

#include <string>

namespace ebtq::admin {

namespace {

bool isSelect(const QString &statement)
{
    return QStringView(statement).trimmed().startsWith(u"select", Qt::CaseInsensitive);
}

void printError(const QString &text, std::FILE *output)
{
    std::fprintf(output, "-- error: %s\n", text.simplified().toUtf8().constData());
}

void runLine(db::Connection &connection, const std::string &line, std::FILE *output)
{
    const auto statement = decodeUtf8(line);
    if (!statement)
        return printError(QStringLiteral("语句不是有效的 UTF-8 文本！"), output);
    try {
        const qint64 rows = runStatement(connection, *statement, output);
        std::fprintf(output, "-- ok %lld\n", static_cast<long long>(rows));
    } catch (const std::exception &failure) {
        printError(QString::fromUtf8(failure.what()), output);
    }
}

} // namespace

qint64 runStatement(db::Connection &connection, const QString &statement, std::FILE *output)
{
    if (!isSelect(statement))
        return connection.execute(statement);
    const RowBlock rows = connection.query(statement);
    printRows(rows, output);
    return rows.rowCount();
}

void runBatch(db::Connection &connection, std::istream &input, std::FILE *output)
{
    std::string line;
    while (std::getline(input, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.find_first_not_of(" \t") == std::string::npos)
            continue;
        runLine(connection, line, output);
        requireWritten(output);
    }
}

} // namespace ebtq::admin
