#include "database/dialect/renderer.h"

#include "database/dialect/errors.h"
#include "database/dialect/limits.h"
#include "database/dialect/tree_walk.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

void appendUtf8(QByteArray &out, char32_t c)
{
    if (c < 0x80) {
        out.append(static_cast<char>(c));
    } else if (c < 0x800) {
        out.append(static_cast<char>(0xC0 | (c >> 6)));
        out.append(static_cast<char>(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
        const char bytes[] = {static_cast<char>(0xE0 | (c >> 12)),
                              static_cast<char>(0x80 | ((c >> 6) & 0x3F)),
                              static_cast<char>(0x80 | (c & 0x3F))};
        out.append(bytes, sizeof bytes);
    } else {
        const char bytes[] = {
            static_cast<char>(0xF0 | (c >> 18)), static_cast<char>(0x80 | ((c >> 12) & 0x3F)),
            static_cast<char>(0x80 | ((c >> 6) & 0x3F)), static_cast<char>(0x80 | (c & 0x3F))};
        out.append(bytes, sizeof bytes);
    }
}

bool hasNullAggregate(const Expression &expression)
{
    const auto *call = expression.as<Call>();
    bool result = call && call->function->isAggregate() && expression.type == Type::Null;
    forEachChild(expression, [&](const Expression &child) { result = result || hasNullAggregate(child); });
    return result;
}

/// Whether all rows become one for aggregates of Null, which are not written.
bool hasNullAggregate(const Select &select)
{
    return select.groupBy.empty() && std::ranges::any_of(select.items, [](const SelectItem &item) {
               return hasNullAggregate(*item.expression);
           });
}

} // namespace

Renderer::OpenTokens::OpenTokens(Renderer &renderer, int count, qsizetype position)
    : m_renderer(renderer)
    , m_count(count)
{
    m_renderer.m_openTokens += count;
    if (m_renderer.m_openTokens <= limits::mostOpenTokens)
        return;
    m_renderer.m_openTokens -= count;
    fail(position, u"语句嵌套过深，请简化后重试"_s);
}

QByteArray Renderer::render(const Statement &statement, qsizetype sizeHint)
{
    m_out.reserve(sizeHint * 3 + 512);
    const OpenTokens open(*this, open_tokens::statement, 0);
    std::visit([this](const auto &each) { this->statement(each); }, statement);
    return std::move(m_out);
}

/// Appends the text; the character `doubled` comes out twice.
void Renderer::utf8(QStringView text, char16_t doubled)
{
    const char16_t *units = text.utf16();
    for (qsizetype at = 0; at < text.size(); ++at) {
        const char16_t c = units[at];
        if (c == doubled)
            write(static_cast<char>(c));
        if (QChar::isHighSurrogate(c) && at + 1 < text.size())
            appendUtf8(m_out, QChar::surrogateToUcs4(c, units[++at]));
        else
            appendUtf8(m_out, c);
    }
}

void Renderer::identifier(QStringView name)
{
    write('"');
    utf8(name, u'"');
    write('"');
}

void Renderer::textLiteral(QStringView text)
{
    write('\'');
    utf8(text, u'\'');
    write('\'');
}

void Renderer::sourceName(int number)
{
    write('t');
    m_out.append(QByteArray::number(number));
}

void Renderer::table(const Source &source)
{
    identifier(source.resolved->name);
    write(" AS ");
    sourceName(source.number);
}

void Renderer::where(const ExpressionPtr &condition)
{
    if (!condition)
        return;
    write(" WHERE ");
    condition.get() == m_rare ? rare(*condition) : this->condition(*condition);
}

void Renderer::statement(const Insert &insert)
{
    write("INSERT INTO ");
    identifier(insert.table.resolved->name);
    for (size_t at = 0; at < insert.columns.size(); ++at) {
        write(at == 0 ? '(' : ',');
        identifier(insert.columns[at].column->as<ColumnReference>()->column->name);
    }
    if (!insert.columns.empty())
        write(')');
    if (insert.select) {
        write(' ');
        return select(*insert.select);
    }
    write(" VALUES (");
    list(insert.values);
    write(')');
}

void Renderer::statement(const Update &update)
{
    write("UPDATE ");
    table(update.table);
    const char *before = " SET ";
    for (const Target &each : update.assignments) {
        write(before);
        identifier(each.column->as<ColumnReference>()->column->name);
        write('=');
        value(*each.value);
        before = ",";
    }
    where(update.where);
}

void Renderer::statement(const Delete &deletion)
{
    write("DELETE FROM ");
    table(deletion.table);
    where(deletion.where);
}

void Renderer::statement(const SelectPtr &select)
{
    m_list = select.get();
    this->select(*select);
}

/// A single select is used as a value.
void Renderer::select(const Select &select, bool isDerived, bool isSingle, bool isCompared)
{
    write(select.isDistinct ? "SELECT DISTINCT " : "SELECT ");
    items(select, isDerived, isCompared);
    from(select);
    where(select.where);
    groupBy(select);
    if (select.having) {
        write(" HAVING ");
        condition(*select.having);
    } else if (m_dialect.typesNull && hasNullAggregate(select)) {
        write(" HAVING true"); // keeps it one row
    }
    orderBy(select);
    limit(select, isSingle);
}

/// The columns of a derived table are compared by the enclosing select, those of a distinct one by the
/// engine.
void Renderer::items(const Select &select, bool isDerived, bool isCompared)
{
    const bool areCompared = isDerived || isCompared || select.isDistinct;
    for (size_t at = 0; at < select.items.size(); ++at) {
        if (at > 0)
            write(',');
        const Expression &item = *select.items[at].expression;
        const auto count =
            &select == m_list ? keyedCount(item, select, m_dialect.isFilteredListLong) : std::nullopt;
        const auto blob = &select == m_list ? blobPlace(item, select) : std::nullopt;
        if (count)
            countApart(at, *count);
        else if (blob)
            keyOf(*blob);
        else if (areCompared)
            caseless(item);
        else
            value(item);
        if (isDerived) {
            write(" AS c");
            m_out.append(QByteArray::number(static_cast<qulonglong>(at)));
        }
    }
}

void Renderer::keyOf(const BlobPlace &place)
{
    write("CASE WHEN ");
    sourceName(place.source->number);
    write('.');
    identifier(place.column->column->name);
    write(" IS NOT NULL THEN ");
    sourceName(place.source->number);
    write('.');
    identifier(place.source->resolved->rowKey);
    write(" END");
}

void Renderer::countApart(size_t column, const KeyedCount &count)
{
    value(*count.listKey);
    m_counts.push_back({column, Renderer(m_dialect).countStatement(count)});
}

QByteArray Renderer::countStatement(const KeyedCount &count)
{
    const OpenTokens open(*this, open_tokens::statement, count.select->position);
    write("SELECT ");
    value(*count.key);
    write(',');
    value(*count.select->items.front().expression);
    from(*count.select);
    const char *before = " WHERE ";
    for (const Expression *each : count.conditions) {
        write(before);
        bracketed(*each, &Renderer::condition);
        before = " AND ";
    }
    write(" GROUP BY ");
    value(*count.key);
    return std::move(m_out);
}

QByteArray Renderer::countWithin(const Source &table, const Expression &bound)
{
    const OpenTokens open(*this, open_tokens::statement, bound.position);
    write("SELECT count(*),");
    fewRowsOf(table);
    write(" FROM (SELECT 1 FROM ");
    this->table(table);
    write(" WHERE ");
    condition(bound);
    write(" LIMIT ");
    fewRowsOf(table);
    write(')');
    return std::move(m_out);
}

void Renderer::fewRowsOf(const Source &table)
{
    write(m_dialect.fewRowsOf);
    identifier(table.resolved->name);
    write(')');
}

void Renderer::from(const Select &select)
{
    const char *before = " FROM ";
    for (const FromItem &item : select.from) {
        write(before);
        fromItem(item, select);
        before = ", ";
    }
}

/// A right join is a left join the other way round: the columns are written out, so their order stays.
void Renderer::fromItem(const FromItem &item, const Select &select)
{
    if (!item.isJoin()) {
        const Source &source = select.sources[item.source];
        if (!source.derived)
            return table(source);
        const OpenTokens open(*this, open_tokens::derivedTable, source.position);
        write('(');
        this->select(*source.derived, true);
        write(") AS ");
        return sourceName(source.number);
    }
    const bool isRight = item.kind == JoinKind::Right;
    fromItem(isRight ? *item.right : *item.left, select);
    write(item.kind == JoinKind::Inner ? " JOIN " : " LEFT JOIN ");
    joinSide(isRight ? *item.left : *item.right, select);
    write(" ON ");
    const OpenTokens open(*this, open_tokens::join, item.condition->position);
    condition(*item.condition);
}

void Renderer::joinSide(const FromItem &item, const Select &select)
{
    if (!item.isJoin())
        return fromItem(item, select);
    const OpenTokens open(*this, open_tokens::join, item.condition->position);
    write('(');
    fromItem(item, select);
    write(')');
}

void Renderer::groupBy(const Select &select)
{
    const char *before = " GROUP BY ";
    for (const ExpressionPtr &each : select.groupBy) {
        write(before);
        if (isTypedText(*each))
            value(*each);
        else
            caseless(*each);
        before = ",";
    }
}

void Renderer::orderBy(const Select &select)
{
    const char *before = " ORDER BY ";
    for (const OrderItem &item : select.orderBy) {
        const Expression &term =
            item.resultColumn ? *select.items[*item.resultColumn].expression : *item.expression;
        if (isConstant(term))
            continue;
        write(before);
        caseless(term);
        write(item.isDescending ? m_dialect.descendingSuffix : m_dialect.ascendingSuffix);
        before = ",";
    }
}

void Renderer::limit(const Select &select, bool isSingle)
{
    const bool isCut =
        isSingle && m_dialect.refusesSeveralRows && (!select.isGrouped || !select.groupBy.empty());
    if (!select.top && !isCut)
        return;
    write(" LIMIT ");
    const qint64 count = select.top.value_or(1);
    m_out.append(QByteArray::number(isCut ? qMin(count, qint64(1)) : count));
}

} // namespace ebtq::db
