#include "database/dialect/lone_bounds.h"

#include "database/dialect/tree_walk.h"
#include "database/dialect/types.h"

#include <algorithm>

namespace ebtq::db {

namespace {

const ColumnReference *comparedColumn(const Expression &condition)
{
    const auto *comparison = condition.as<Comparison>();
    return comparison ? comparison->left->as<ColumnReference>() : nullptr;
}

bool isEqualityOfColumn(const Expression *condition)
{
    const auto *comparison = condition->as<Comparison>();
    return comparison && comparison->op == Operator::Equal && !isConstant(*comparison->left);
}

bool isBound(const Expression &condition, int source)
{
    const ColumnReference *column = comparedColumn(condition);
    const auto *comparison = condition.as<Comparison>();
    return column && column->source == source && !column->isDerived && !column->isUnindexed &&
           comparison->op != Operator::Equal && comparison->op != Operator::NotEqual &&
           comparison->left->type == Type::Number && comparison->right->as<NumberLiteral>();
}

} // namespace

std::vector<const Expression *> loneBounds(const Select &select)
{
    const std::vector<const Expression *> conditions = conjunctsOf(select.where);
    if (select.from.size() != 1 || select.sources.front().derived ||
        std::ranges::any_of(conditions, isEqualityOfColumn))
        return {};
    const int first = select.sources.front().number;
    std::vector<const Expression *> bounds;
    for (const Expression *condition : conditions) {
        if (!isBound(*condition, first))
            continue;
        const int index = comparedColumn(*condition)->index;
        if (std::ranges::any_of(bounds,
                                [&](const auto *other) { return comparedColumn(*other)->index == index; }))
            return {};
        bounds.push_back(condition);
    }
    return bounds;
}

} // namespace ebtq::db
