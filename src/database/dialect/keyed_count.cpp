#include "database/dialect/keyed_count.h"

#include "database/dialect/tree_walk.h"
#include "database/dialect/types.h"

#include <algorithm>

namespace ebtq::db {

namespace {

/// Whether an expression reads columns of that source alone.
bool readsOnly(const Expression &expression, int source)
{
    if (selectIn(expression))
        return false;
    const auto *reference = expression.as<ColumnReference>();
    bool result = !reference || reference->source == source;
    forEachChild(expression, [&](const Expression &child) { result = result && readsOnly(child, source); });
    return result;
}

bool isSameColumn(const Expression &one, const Expression &other)
{
    const auto *left = one.as<ColumnReference>();
    const auto *right = other.as<ColumnReference>();
    return left && right && left->source == right->source && left->index == right->index;
}

bool isEquality(const Expression &condition)
{
    const auto *comparison = condition.as<Comparison>();
    return comparison && comparison->op == Operator::Equal;
}

/// A text column of the list itself or of the table that is counted in.
bool isTextColumn(const Expression &expression, const std::vector<Source> &sources)
{
    const auto *reference = expression.as<ColumnReference>();
    return reference && !reference->isDerived && expression.type == Type::Text &&
           std::ranges::find(sources, reference->source, &Source::number) != sources.end();
}

/// The one row count of one table, without anything that would need all its rows together.
const Select *plainCount(const Expression &item)
{
    const auto *inner = item.as<SubSelect>();
    if (!inner)
        return nullptr;
    const Select &select = *inner->select;
    const auto *call = select.items.front().expression->as<Call>();
    const bool isPlain = call && call->function->form == Function::Form::Count &&
                         select.sources.size() == 1 && !select.sources.front().derived &&
                         select.groupBy.empty() && !select.having && select.orderBy.empty() && !select.top;
    return isPlain && readsOnly(*select.items.front().expression, select.sources.front().number) ? &select
                                                                                                 : nullptr;
}

/// Puts the condition in its place; false for one that the count cannot be grouped by.
bool place(const Expression &condition, const Select &list, KeyedCount &count)
{
    const std::vector<Source> &counted = count.select->sources;
    if (readsOnly(condition, counted.front().number)) {
        count.conditions.push_back(&condition);
        return true;
    }
    if (!isEquality(condition) || count.key)
        return false;
    const auto &comparison = *condition.as<Comparison>();
    const bool isKeyFirst = isTextColumn(*comparison.left, counted);
    count.key = isKeyFirst ? comparison.left.get() : comparison.right.get();
    count.listKey = isKeyFirst ? comparison.right.get() : comparison.left.get();
    return isTextColumn(*count.key, counted) && isTextColumn(*count.listKey, list.sources);
}

bool isLong(const Select &list, const Expression &key, bool isFilteredLong)
{
    return std::ranges::all_of(conjunctsOf(list.where), [&](const Expression *each) {
        if (isConstant(*each))
            return true;
        const auto *comparison = isEquality(*each) ? each->as<Comparison>() : nullptr;
        const bool isOfOneKey =
            comparison && ((isSameColumn(*comparison->left, key) && isLiteral(*comparison->right)) ||
                           (isSameColumn(*comparison->right, key) && isLiteral(*comparison->left)));
        return isFilteredLong && !isOfOneKey;
    });
}

} // namespace

std::optional<KeyedCount> keyedCount(const Expression &item, const Select &list, bool isFilteredLong)
{
    const Select *select = plainCount(item);
    if (!select || list.isGrouped || list.isDistinct || list.top)
        return std::nullopt;
    KeyedCount count{select, nullptr, nullptr, {}};
    for (const Expression *each : conjunctsOf(select->where)) {
        if (!place(*each, list, count))
            return std::nullopt;
    }
    return count.key && isLong(list, *count.listKey, isFilteredLong) ? std::optional(count) : std::nullopt;
}

} // namespace ebtq::db
