#include "library/records/loaded_row.h"

#include "contracts/host_contracts.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

/// What the form itself answers for is no matter between two people.
bool isCompared(const RecordColumn &column)
{
    return column.saved != Saved::Not && column.holder != Holder::Given;
}

} // namespace

void LoadedRow::clear()
{
    m_texts.clear();
    m_attempted.clear();
}

void LoadedRow::take(const RecordTable &record, const Recordset &row)
{
    clear();
    for (const RecordColumn &column : record.update) {
        if (isCompared(column))
            m_texts.insert(column.column, loadedText(column, row));
    }
}

SqlText LoadedRow::statement(const RecordTable &record, const QString &key)
{
    QStringList columns;
    for (const RecordColumn &column : record.update) {
        if (isCompared(column))
            columns += column.column.toString();
    }
    return SqlText(u"select %1 from %2"_s.arg(columns.join(u','), record.table)) + whereKey(record, key);
}

std::vector<ForeignChange> LoadedRow::changesIn(const RecordTable &record, const Recordset &row) const
{
    std::vector<ForeignChange> result;
    for (const RecordColumn &column : record.update) {
        if (!isCompared(column))
            continue;
        const QString stored = loadedText(column, row);
        const QString loaded = m_texts.value(column.column);
        const auto attempted = m_attempted.constFind(column.column);
        const bool isOwn = attempted != m_attempted.cend() && isSameValue(column, stored, *attempted);
        if (stored != loaded && !isOwn)
            result.push_back({&column, loaded, stored});
    }
    return result;
}

void LoadedRow::attempt(const RecordTable &record, const HeldText &held)
{
    for (const RecordColumn &column : record.update) {
        if (isCompared(column))
            m_attempted.insert(column.column, held(column));
    }
}

void LoadedRow::accept(const ForeignChange &change)
{
    m_texts.insert(change.column->column, change.stored);
}

} // namespace ebtq
