#include "corpus.h"

#include "database/schema/installer.h"

#include <QFile>

namespace ebtq::db::test {

namespace {

QStringList linesOf(const char *name)
{
    QFile file(QStringLiteral(EBTQ_DIALECT_DATA "/") + QString::fromLatin1(name));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("test data missing");
    return QString::fromUtf8(file.readAll()).split(u'\n');
}

void addLine(CorpusCase &into, const QString &line)
{
    const QString value = line.mid(2);
    if (line.startsWith(u": "))
        into.name = value.toStdString();
    else if (line.startsWith(u"> "))
        into.rows += value;
    else if (line.startsWith(u"= "))
        into.changed = value.toInt();
    else if (line.startsWith(u"! "))
        into.refusal = value;
    else if (line.startsWith(u"?"))
        into.runs = false;
    else
        into.statement += into.statement.isEmpty() ? line : u'\n' + line;
}

std::vector<CorpusCase> readCorpus()
{
    std::vector<CorpusCase> cases;
    bool isResult = false;
    for (const QString &line : linesOf("statements.txt")) {
        if (line.isEmpty() || line.startsWith(u"# "))
            continue;
        const bool isAfterResult = std::exchange(isResult, u">=!?"_qs.contains(line.front()));
        if (line.startsWith(u": ") || (isAfterResult && !isResult))
            cases.emplace_back();
        addLine(cases.back(), line);
    }
    return cases;
}

} // namespace

const std::vector<CorpusCase> &corpus()
{
    static const std::vector<CorpusCase> cases = readCorpus();
    return cases;
}

void fillDatabase(Connection &connection)
{
    install(connection);
    for (const QString &line : linesOf("rows.txt")) {
        if (!line.isEmpty())
            connection.execute(line);
    }
}

std::unique_ptr<Connection> filledDatabase()
{
    auto connection = Connection::open(u":memory:"_qs);
    fillDatabase(*connection);
    return connection;
}

QStringList rowTexts(const RowBlock &block)
{
    QStringList rows;
    for (qsizetype row = 0; row < block.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < block.columnCount(); ++column) {
            const std::string_view cell = block.cell(row, column);
            cells += block.isNull(row, column)
                         ? u"∅"_qs
                         : QString::fromUtf8(cell.data(), static_cast<qsizetype>(cell.size()));
        }
        rows += cells.join(u'|');
    }
    return rows;
}

} // namespace ebtq::db::test
