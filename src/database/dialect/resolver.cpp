#include "database/dialect/resolver.h"

#include "database/dialect/errors.h"
#include "database/dialect/limits.h"
#include "database/dialect/tree_walk.h"
#include "database/dialect/types.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

bool isSameName(QStringView one, QStringView other)
{
    return one.size() == other.size() && one.compare(other, Qt::CaseInsensitive) == 0;
}

const std::vector<Column> &columnsOf(const Source &source)
{
    return source.derived ? source.derived->columns : source.resolved->columns;
}

int indexNamed(const std::vector<Column> &columns, QStringView name)
{
    for (size_t at = 0; at < columns.size(); ++at) {
        if (isSameName(columns[at].name, name))
            return static_cast<int>(at);
    }
    return -1;
}

void checkCount(size_t count, qsizetype position)
{
    if (count > limits::mostColumns)
        fail(position, u"列太多：超过 %1 列"_s.arg(limits::mostColumns));
}

bool isOwn(const ColumnReference &reference, const Select &select)
{
    return std::ranges::any_of(select.sources,
                               [&](const Source &each) { return each.number == reference.source; });
}

void bind(ColumnReference &reference, const Source &source, int index)
{
    reference.source = source.number;
    reference.index = index;
    reference.column = &columnsOf(source)[static_cast<size_t>(index)];
    reference.isDerived = source.derived != nullptr;
    reference.isUnindexed = source.resolved && source.resolved->isUnindexed(static_cast<size_t>(index));
}

} // namespace

void Resolver::resolve(Statement &statement)
{
    if (auto *read = std::get_if<SelectPtr>(&statement))
        select(**read, nullptr);
    else if (auto *insertion = std::get_if<Insert>(&statement))
        insert(*insertion);
    else if (auto *change = std::get_if<Update>(&statement))
        update(*change);
    else
        deletion(std::get<Delete>(statement));
}

void Resolver::table(Source &source)
{
    source.resolved = m_catalog.table(source.table);
    if (!source.resolved)
        fail(source.position, u"表 %1 不存在"_s.arg(source.table));
}

void Resolver::sources(Select &select, const Scope *outer)
{
    if (select.sources.size() > limits::mostSources)
        fail(select.position, u"连接的表太多：超过 %1 个"_s.arg(limits::mostSources));
    for (size_t at = 0; at < select.sources.size(); ++at) {
        Source &source = select.sources[at];
        if (source.derived)
            this->select(*source.derived, outer);
        else
            table(source);
        const auto before = select.sources.begin() + static_cast<std::ptrdiff_t>(at);
        const bool isTaken = std::any_of(select.sources.begin(), before, [&](const Source &each) {
            return isSameName(each.name(), source.name());
        });
        if (isTaken)
            fail(source.position, u"表名或别名 %1 重复"_s.arg(source.name()));
    }
}

void Resolver::joinConditions(FromItem &item, const Select &select, const Scope *outer)
{
    if (!item.isJoin())
        return;
    joinConditions(*item.left, select, outer);
    joinConditions(*item.right, select, outer);
    Scope scope{select.sources.data(), item.source, item.last + 1, outer};
    condition(item.condition, scope);
}

void Resolver::select(Select &select, const Scope *outer)
{
    sources(select, outer);
    for (FromItem &item : select.from)
        joinConditions(item, select, outer);
    expandStars(select);
    Scope scope{select.sources.data(), 0, select.sources.size(), outer};
    if (select.where)
        condition(select.where, scope);
    expressions(select.groupBy, scope);
    checkGroupTerms(select);
    scope.takesAggregates = true;
    for (SelectItem &item : select.items)
        expression(item.expression, scope);
    resultColumns(select);
    if (select.having) {
        if (select.groupBy.empty() && !scope.hasAggregate)
            fail(select.having->position, u"having 只能与 group by 或汇总函数一起使用"_s);
        condition(select.having, scope);
    }
    // Without it each row would be one of the result, and nothing there to be taken together.
    scope.takesAggregates = scope.hasAggregate || !select.groupBy.empty();
    orderBy(select, scope);
    select.isGrouped = scope.hasAggregate || !select.groupBy.empty() || select.having;
    checkCount(select.groupBy.size() + select.orderBy.size(), select.position);
    if (select.isGrouped)
        checkGroups(select);
    if (select.isDistinct)
        checkDistinctOrder(select);
}

void Resolver::expandStars(Select &select)
{
    std::vector<SelectItem> items;
    for (SelectItem &item : select.items) {
        if (item.expression)
            items.push_back(std::move(item));
        else
            expandStar(item, select, items);
        checkCount(items.size(), item.position);
    }
    select.items = std::move(items);
}

void Resolver::expandStar(const SelectItem &star, const Select &select, std::vector<SelectItem> &into)
{
    bool isFound = false;
    for (const Source &source : select.sources) {
        if (!star.alias.isEmpty() && !isSameName(star.alias, source.name()))
            continue;
        isFound = true;
        const std::vector<Column> &columns = columnsOf(source);
        for (size_t at = 0; at < columns.size(); ++at) {
            ColumnReference reference{{}, columns[at].name};
            bind(reference, source, static_cast<int>(at));
            into.push_back({std::make_unique<Expression>(Expression{reference, star.position, star.position}),
                            {},
                            star.position});
        }
    }
    if (!isFound)
        fail(star.position, star.alias.isEmpty() ? u"“*”要有 from"_s : u"表 %1 不存在"_s.arg(star.alias));
}

void Resolver::resultColumns(Select &select)
{
    select.columns.reserve(select.items.size());
    for (const SelectItem &item : select.items) {
        const auto *reference = item.expression->as<ColumnReference>();
        const QStringView name = item.alias.isEmpty() && reference ? reference->name : item.alias;
        select.columns.push_back({name.toString(), columnTypeOf(item.expression->type)});
    }
}

void Resolver::orderBy(Select &select, Scope &scope)
{
    for (OrderItem &item : select.orderBy) {
        if (!orderByResult(item, select))
            expression(item.expression, scope);
    }
}

/// A bare name means the column of the result first, then one of the tables; a number is a position.
bool Resolver::orderByResult(OrderItem &item, const Select &select)
{
    if (const auto *reference = item.expression->as<ColumnReference>()) {
        const int found = reference->qualifier.isEmpty() ? indexNamed(select.columns, reference->name) : -1;
        if (found >= 0)
            item.resultColumn = static_cast<size_t>(found);
        return found >= 0;
    }
    const auto *number = item.expression->as<NumberLiteral>();
    if (!number)
        return false;
    const bool isPosition = number->value == std::floor(number->value) && number->value >= 1 &&
                            number->value <= static_cast<double>(select.items.size());
    if (!isPosition)
        fail(item.expression->position, u"order by 的序号应在 1 到 %1 之间"_s.arg(select.items.size()));
    item.resultColumn = static_cast<size_t>(number->value) - 1;
    return true;
}

void Resolver::checkDistinctOrder(const Select &select)
{
    for (const OrderItem &item : select.orderBy) {
        const bool isShown =
            item.resultColumn || std::ranges::any_of(select.items, [&](const SelectItem &each) {
                return isSame(*each.expression, *item.expression);
            });
        if (!isShown)
            fail(item.expression->position, u"用了 distinct，只能按所选的列排序"_s);
    }
}

void Resolver::checkGroups(Select &select)
{
    for (const ExpressionPtr &each : select.groupBy)
        each->isGrouped = true;
    for (SelectItem &item : select.items)
        checkGrouped(*item.expression, select);
    if (select.having)
        checkGrouped(*select.having, select);
    for (OrderItem &item : select.orderBy) {
        if (!item.resultColumn)
            checkGrouped(*item.expression, select);
    }
}

/// An engine would take a number for the position of a column.
void Resolver::checkGroupTerms(const Select &select)
{
    for (const ExpressionPtr &each : select.groupBy) {
        if (isConstant(*each) || each->type == Type::Null)
            fail(each->position, u"group by 中应为列或算式，而%1不是"_s.arg(describe(*each)));
    }
}

void Resolver::checkGrouped(Expression &expression, const Select &select)
{
    const auto *call = expression.as<Call>();
    if (call && call->function->isAggregate())
        return;
    expression.isGrouped = std::ranges::any_of(
        select.groupBy, [&](const ExpressionPtr &each) { return isSame(*each, expression); });
    if (expression.isGrouped)
        return;
    const auto *reference = expression.as<ColumnReference>();
    if (reference && isOwn(*reference, select))
        fail(expression.position, u"列 %1 既不在 group by 里，也不在汇总函数里"_s.arg(reference->name));
    forEachChild(expression, [&](Expression &child) { checkGrouped(child, select); });
    if (const Select *inner = selectIn(expression))
        checkGroupedInside(*inner, select);
}

/// A select inside of a grouped one finds the columns grouped by, and no expression of others.
void Resolver::checkGroupedInside(const Select &inner, const Select &select) const
{
    forEachExpression(inner, [&](const Expression &each) { checkGroupedInside(each, select); });
}

void Resolver::checkGroupedInside(const Expression &expression, const Select &select) const
{
    const auto *reference = expression.as<ColumnReference>();
    const auto isIt = [&](const ExpressionPtr &each) { return isSame(*each, expression); };
    if (reference && isOwn(*reference, select) && std::ranges::none_of(select.groupBy, isIt))
        fail(expression.position, u"列 %1 既不在 group by 里，也不在汇总函数里"_s.arg(reference->name));
    forEachChild(expression, [&](const Expression &child) { checkGroupedInside(child, select); });
    if (const Select *inner = selectIn(expression))
        checkGroupedInside(*inner, select);
}

/// The same column, or the same words.
bool Resolver::isSame(const Expression &one, const Expression &other) const
{
    const auto *left = one.as<ColumnReference>();
    const auto *right = other.as<ColumnReference>();
    if (left || right)
        return left && right && left->source == right->source && left->index == right->index;
    return one.end > one.position && isSameName(m_text.sliced(one.position, one.end - one.position),
                                                m_text.sliced(other.position, other.end - other.position));
}

bool Resolver::lookUp(ColumnReference &reference, const Scope &scope, qsizetype position)
{
    const Source *found = nullptr;
    for (size_t at = scope.first; at < scope.end; ++at) {
        const Source &source = scope.sources[at];
        if (!reference.qualifier.isEmpty() && !isSameName(reference.qualifier, source.name()))
            continue;
        const int index = indexNamed(columnsOf(source), reference.name);
        if (index < 0 && !reference.qualifier.isEmpty())
            fail(position, u"列 %1.%2 不存在"_s.arg(reference.qualifier, reference.name));
        if (index < 0)
            continue;
        if (found) {
            fail(position, u"列 %1 不明确：%2 和 %3 中都有，请写明表名"_s.arg(reference.name, found->name(),
                                                                              source.name()));
        }
        found = &source;
        bind(reference, source, index);
    }
    return found != nullptr;
}

/// The columns that an insert or update writes, each once.
const Column *Resolver::target(const Target &target, const Source &source,
                               const std::vector<const Column *> &before)
{
    const auto &written = *target.column->as<ColumnReference>();
    const Column *column = source.resolved->column(written.name);
    const bool isOther = !written.qualifier.isEmpty() && !isSameName(written.qualifier, source.name());
    if (!column || isOther)
        fail(target.column->position, u"列 %1 不存在"_s.arg(written.name));
    if (std::ranges::find(before, column) != before.end())
        fail(target.column->position, u"列 %1 重复"_s.arg(written.name));
    return column;
}

void Resolver::assign(ExpressionPtr &value, const Column &column)
{
    const Type wanted = typeOf(column.type);
    if (!coerce(value, wanted)) {
        fail(value->position,
             u"列 %1 应为%2，不能写入%3"_s.arg(column.name, nameOf(wanted), describe(*value)));
    }
}

void Resolver::insert(Insert &insert)
{
    table(insert.table);
    std::vector<const Column *> columns;
    for (Target &each : insert.columns) {
        columns.push_back(target(each, insert.table, columns));
        each.column->as<ColumnReference>()->column = columns.back();
    }
    if (columns.empty()) {
        for (const Column &each : insert.table.resolved->columns)
            columns.push_back(&each);
    }
    if (insert.select)
        return insertSelect(insert, columns);
    if (insert.values.size() != columns.size()) {
        fail(insert.table.position,
             u"列有 %1 个，值有 %2 个，个数不一致"_s.arg(columns.size()).arg(insert.values.size()));
    }
    Scope scope;
    expressions(insert.values, scope);
    for (size_t at = 0; at < columns.size(); ++at)
        assign(insert.values[at], *columns[at]);
}

void Resolver::insertSelect(Insert &insert, const std::vector<const Column *> &columns)
{
    select(*insert.select, nullptr);
    std::vector<SelectItem> &items = insert.select->items;
    if (items.size() != columns.size()) {
        fail(insert.select->position,
             u"列有 %1 个，值有 %2 个，个数不一致"_s.arg(columns.size()).arg(items.size()));
    }
    for (size_t at = 0; at < columns.size(); ++at)
        assign(items[at].expression, *columns[at]);
}

void Resolver::update(Update &update)
{
    table(update.table);
    Scope scope{&update.table, 0, 1};
    std::vector<const Column *> columns;
    for (Target &each : update.assignments) {
        columns.push_back(target(each, update.table, columns));
        each.column->as<ColumnReference>()->column = columns.back();
        expression(each.value, scope);
        assign(each.value, *columns.back());
    }
    checkCount(columns.size(), update.table.position);
    if (update.where)
        condition(update.where, scope);
}

void Resolver::deletion(Delete &deletion)
{
    table(deletion.table);
    Scope scope{&deletion.table, 0, 1};
    if (deletion.where)
        condition(deletion.where, scope);
}

} // namespace ebtq::db
