#include "agents/ledger.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <map>

namespace ebtq::bench {

namespace {

/// The columns of one row, as a save gives them and as the database holds them.
using Row = QStringList;

struct Table
{
    QHash<QString, Row> rows; ///< by key
    QSet<QString> texts;
};

/// Columns: the key, the number or the owner, and the text, of a listing and a customer twice, since a row is
/// to come from one save.
Table read(db::Connection &connection, const QString &statement)
{
    const RowBlock block = connection.query(statement);
    Table table;
    for (qsizetype at = 0; at < block.rowCount(); ++at) {
        Row row;
        for (int column = 1; column < block.columnCount(); ++column)
            row.append(block.value(at, column).toString());
        table.texts.insert(row.last());
        table.rows.insert(block.value(at, 0).toString(), row);
    }
    return table;
}

void findDuplicates(const Table &numbered, QStringList &numbers)
{
    QHash<QString, int> uses;
    for (const Row &row : numbered.rows)
        ++uses[row.first()];
    for (auto use = uses.cbegin(); use != uses.cend(); ++use) {
        if (use.value() > 1 && !use.key().isEmpty())
            numbers.append(use.key());
    }
}

/// True when a row may hold this save although all of `saves` were made, which are those of the same row.
bool mayStand(const Save &save, const QList<const Save *> &saves)
{
    if (save.outcome != Outcome::Confirmed)
        return save.outcome == Outcome::Unknown;
    return std::ranges::none_of(saves, [&](const Save *other) {
        return other->outcome == Outcome::Confirmed && other->begin > save.end;
    });
}

bool isHeld(const Row &row, const QList<const Save *> &saves)
{
    return row.size() == 3 && row[1] == row[2] && std::ranges::any_of(saves, [&](const Save *save) {
               return save->text == row[1] && mayStand(*save, saves);
           });
}

enum class Holder { Listings, FollowUps, Customers };

Holder holderOf(const Save &save)
{
    if (save.kind == Save::FollowUp)
        return Holder::FollowUps;
    return save.kind == Save::NewCustomer ? Holder::Customers : Holder::Listings;
}

/// Each row that was saved, with its saves.
QHash<QString, QList<const Save *>> byRow(Holder holder, const QList<Save> &saves)
{
    QHash<QString, QList<const Save *>> result;
    for (const Save &save : saves) {
        if (holderOf(save) == holder && !save.key.isEmpty())
            result[save.key].append(&save);
    }
    return result;
}

bool isConfirmed(const Save *save)
{
    return save->outcome == Outcome::Confirmed;
}

void compareNumbered(Holder holder, const Table &table, const QList<Save> &saves, QStringList &missing)
{
    const auto groups = byRow(holder, saves);
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        const Row row = table.rows.value(group.key());
        if (std::ranges::any_of(group.value(), isConfirmed) && !isHeld(row, group.value()))
            missing.append(group.key() + QStringLiteral(": ") + row.join(u'|'));
        for (const Save *save : group.value()) {
            if (isConfirmed(save) && !save->number.isEmpty() && row.value(0) != save->number)
                missing.append(save->number + QStringLiteral(": ") + row.join(u'|'));
        }
    }
}

void compareFollowUps(const Table &followUps, const QList<Save> &saves, QStringList &missing)
{
    for (const Save &save : saves) {
        const Row row = followUps.rows.value(save.key);
        if (save.kind == Save::FollowUp && isConfirmed(&save) && row != Row{save.listing, save.text})
            missing.append(save.text + QStringLiteral(": ") + row.join(u'|'));
    }
}

} // namespace

Findings compare(db::Connection &connection, const QList<Save> &saves)
{
    std::map<Holder, Table> tables;
    for (const auto &[holder, statement] :
         {std::pair(Holder::Listings, u"select 房源ID,房源编号,联系人,备注 from fyxx"),
          std::pair(Holder::FollowUps, u"select 跟进ID,房源ID,跟进内容 from fygj"),
          std::pair(Holder::Customers, u"select 客源ID,客源编号,客户名称,备注 from fykh")})
        tables[holder] = read(connection, QString::fromUtf16(statement));
    Findings findings;
    for (const Holder holder : {Holder::Listings, Holder::Customers}) {
        findDuplicates(tables[holder], findings.duplicates);
        compareNumbered(holder, tables[holder], saves, findings.missing);
    }
    compareFollowUps(tables[Holder::FollowUps], saves, findings.missing);
    for (const Save &save : saves) {
        if (save.outcome == Outcome::Refused && tables[holderOf(save)].texts.contains(save.text))
            findings.unasked.append(save.text + QStringLiteral(": ") + save.told);
    }
    return findings;
}

} // namespace ebtq::bench
