#include "host/start/district_lines.h"

#include "contracts/host_contracts.h"
#include "host/table_writer.h"
#include "host/users.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

// As the parameter "dzbm" of a new database has it: three levels of two digits.
constexpr int deepestLevel = 3;
constexpr int digitsOfLevel = 2;
constexpr int mostSiblings = 99;

int indentOf(const QString &line)
{
    constexpr int tabWidth = 4;
    int width = 0;
    for (const QChar c : line) {
        if (!c.isSpace())
            break;
        width += c == u'\t' ? tabWidth : c == u'　' ? 2 : 1;
    }
    return width;
}

/// Gives each line its level by how far it is indented below the lines above, and judges it.
class DistrictReader
{
public:
    void read(const QString &line)
    {
        const int level = levelOf(indentOf(line));
        if (level > deepestLevel)
            throw Failure(u"最多 %1 级"_s.arg(deepestLevel));
        const QString name = line.trimmed();
        requireName(u"地区名称"_s, name);
        enter(name, level);
        m_districts.push_back({name, level});
    }
    [[nodiscard]] Districts take() { return std::move(m_districts); }

private:
    int levelOf(int indent)
    {
        while (!m_indents.empty() && m_indents.back() > indent)
            m_indents.pop_back();
        if (m_indents.empty() && !m_districts.empty())
            throw Failure(u"缩进比第一行还少"_s);
        if (m_indents.empty() || m_indents.back() < indent)
            m_indents.push_back(indent);
        return static_cast<int>(m_indents.size());
    }
    void enter(const QString &name, int level)
    {
        m_siblings.resize(static_cast<size_t>(level) + 1);
        QSet<QString> &names = m_siblings.at(static_cast<size_t>(level) - 1);
        if (names.contains(name.toCaseFolded()))
            throw Failure(u"“%1”在同一级中重复"_s.arg(name));
        names.insert(name.toCaseFolded());
        if (names.size() > mostSiblings)
            throw Failure(u"同一级最多 %1 个"_s.arg(mostSiblings));
        m_siblings.back().clear(); // what belongs to this one begins anew
    }

    Districts m_districts;
    std::vector<int> m_indents;
    std::vector<QSet<QString>> m_siblings; ///< names taken, by level, below the present parent
};

} // namespace

Districts readDistrictLines(const QString &text)
{
    DistrictReader reader;
    const QStringList lines = text.split(u'\n');
    for (qsizetype at = 0; at < lines.size(); ++at) {
        if (lines.at(at).trimmed().isEmpty())
            continue;
        try {
            reader.read(lines.at(at));
        } catch (const Failure &failure) {
            throw Failure(u"地区第 %1 行：%2"_s.arg(at + 1).arg(QString::fromUtf8(failure.what())));
        }
    }
    return reader.take();
}

void writeDistricts(db::Connection &connection, const Districts &districts)
{
    TableWriter writer(connection, u"pdmdq"_s, u"地区ID,编码,地区,级次,是否明细");
    std::vector<int> numbers; // of the present district and those above it
    for (size_t at = 0; at < districts.size(); ++at) {
        const auto level = static_cast<size_t>(districts[at].level);
        numbers.resize(level);
        ++numbers.back();
        QString code;
        for (const int number : numbers)
            code += u"%1"_s.arg(number, digitsOfLevel, 10, QLatin1Char('0'));
        const bool isDetail = at + 1 == districts.size() || districts[at + 1].level <= districts[at].level;
        writer.row(
            {static_cast<int>(at) + 1, code, districts[at].name, districts[at].level, isDetail ? 1 : 0});
    }
    writer.flush();
}

} // namespace ebtq::host
