#include "host/start/standard_lists.h"

#include "contracts/host_contracts.h"
#include "host/table_writer.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

// Outside of any namespace: the macro declares a function that the resource compiler defined there.
static void initialiseResources()
{
    Q_INIT_RESOURCE(start);
}

namespace ebtq::host {

namespace {

/// Where the rows of a list go. A row of the dictionary begins with its kind, others with a number as their
/// key.
struct Target
{
    QStringView list; ///< empty: any kind of the data dictionary
    QStringView table;
    QStringView columns;
    int texts;   ///< cells of a row that are texts
    int numbers; ///< cells behind them
};

constexpr Target targets[] = {
    {u"房型", u"pdmfx", u"房型ID,房型编号,房型名称,房间数,客厅数,卫生间数,阳台数", 2, 4},
    {u"产权", u"pdmcq", u"产权ID,产权编号,产权名称,证件名称,付款方式,付佣金方式", 5, 0},
    {u"", u"pdmsjzd", u"类型,代码,名称", 2, 0},
};

const Target &targetOf(QStringView list)
{
    return *std::ranges::find_if(
        targets, [list](const Target &target) { return target.list.isEmpty() || target.list == list; });
}

bool isSmallNumber(const QString &text)
{
    constexpr int mostDigits = 2;
    return !text.isEmpty() && text.size() <= mostDigits &&
           std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// What is wrong with a row; empty when it can be used.
QString faultOf(const StandardList &list, const QStringList &row)
{
    const Target &target = targetOf(list.name);
    if (row.size() != target.texts + target.numbers)
        return u"应有 %1 项，用逗号分隔"_s.arg(target.texts + target.numbers);
    if (row.at(0).isEmpty() || row.at(1).isEmpty())
        return u"代码和名称不能为空"_s;
    if (row.join(QString()).contains(u'\''))
        return u"不能含有单引号"_s;
    if (!std::all_of(row.begin() + target.texts, row.end(), isSmallNumber))
        return u"间数应为 0 至 99 的整数"_s;
    for (const QStringList &other : list.rows) {
        if (other.at(0) == row.at(0) || other.at(1) == row.at(1))
            return u"代码或名称与前面的重复"_s;
    }
    return {};
}

QStringList cellsOf(const QString &line)
{
    QStringList cells = line.split(u',');
    for (QString &cell : cells)
        cell = cell.trimmed();
    return cells;
}

QString addLine(StandardLists &lists, const QString &line)
{
    if (line.startsWith(u'[') && line.endsWith(u']')) {
        const QString name = line.mid(1, line.size() - 2).trimmed();
        if (std::ranges::find(lists, name, &StandardList::name) != lists.end())
            return u"前面已有“%1”"_s.arg(name);
        lists.push_back({name, {}});
        return name.isEmpty() || name.contains(u'\'') ? u"方括号中应为字典的名称，不含单引号"_s : QString();
    }
    if (lists.empty())
        return u"前面缺少方括号中的字典名称"_s;
    const QStringList row = cellsOf(line);
    QString fault = faultOf(lists.back(), row);
    if (fault.isEmpty())
        lists.back().rows.push_back(row);
    return fault;
}

bool isEmpty(db::Connection &connection, const StandardList &list)
{
    const Target &target = targetOf(list.name);
    SqlText statement(u"select top 1 * from %1"_s.arg(target.table));
    if (target.list.isEmpty())
        statement += SqlText(u" where 类型='"_s) + typed(list.name) + u"'"_s;
    return connection.query(statement).rowCount() == 0;
}

void writeList(db::Connection &connection, const StandardList &list)
{
    const Target &target = targetOf(list.name);
    TableWriter writer(connection, target.table.toString(), target.columns);
    int key = 0;
    for (const QStringList &row : list.rows) {
        ++key;
        writer.part({target.list.isEmpty() ? TableWriter::Cell(QStringView(list.name)) : key});
        for (const QString &cell : row)
            writer.part({QStringView(cell)});
        writer.endRow();
    }
    writer.flush();
}

} // namespace

QString builtInStandardLists()
{
    initialiseResources();
    return u":/ebtq/standard_lists.txt"_s;
}

QString standardListsFile()
{
    const QString installed = QCoreApplication::applicationDirPath() + u"/../share/ebtq/standard_lists.txt"_s;
    return QFile::exists(installed) ? installed : builtInStandardLists();
}

StandardLists readStandardLists(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(u"无法读取字典文件“%1”：%2"_s.arg(fileName, file.errorString()));
    StandardLists lists;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (qsizetype at = 0; at < lines.size(); ++at) {
        const QString line = lines.at(at).section(u'#', 0, 0).trimmed();
        const QString fault = line.isEmpty() ? QString() : addLine(lists, line);
        if (!fault.isEmpty())
            throw Failure(u"字典文件“%1”第 %2 行有误：%3！"_s.arg(fileName).arg(at + 1).arg(fault));
    }
    return lists;
}

QStringList writeStandardLists(db::Connection &connection, const StandardLists &lists)
{
    QStringList written;
    db::Transaction transaction(connection);
    for (const StandardList &list : lists) {
        if (!isEmpty(connection, list))
            continue;
        writeList(connection, list);
        written << list.name;
    }
    transaction.commit();
    return written;
}

} // namespace ebtq::host
