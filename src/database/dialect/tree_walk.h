#pragma once

#include "database/dialect/tree.h"

namespace ebtq::db {

/// Calls `visit` with each expression directly below this one, sub-selects left out.
template<class Visit> void forEachChild(const Expression &expression, Visit visit)
{
    struct Walker
    {
        Visit &visit;
        void each(const ExpressionPtr &child) { visit(*child); }
        void operator()(const NullLiteral &) {}
        void operator()(const TextLiteral &) {}
        void operator()(const NumberLiteral &) {}
        void operator()(const DateLiteral &) {}
        void operator()(const ColumnReference &) {}
        void operator()(const ExistsTest &) {}
        void operator()(const SubSelect &) {}
        void operator()(const Negation &node) { each(node.operand); }
        void operator()(const NullTest &node) { each(node.operand); }
        void operator()(const Not &node) { each(node.operand); }
        void operator()(const Conversion &node) { each(node.operand); }
        void operator()(const SelectTest &node) { each(node.value); }
        void operator()(const Chain &node)
        {
            each(node.first);
            for (const Chain::Link &link : node.links)
                each(link.operand);
        }
        void operator()(const Comparison &node)
        {
            each(node.left);
            each(node.right);
        }
        void operator()(const LikeTest &node)
        {
            each(node.value);
            each(node.pattern);
        }
        void operator()(const ListTest &node)
        {
            each(node.value);
            for (const ExpressionPtr &item : node.items)
                each(item);
        }
        void operator()(const RangeTest &node)
        {
            each(node.value);
            each(node.low);
            each(node.high);
        }
        void operator()(const Call &node)
        {
            for (const ExpressionPtr &argument : node.arguments)
                each(argument);
        }
    };
    std::visit(Walker{visit}, expression.node);
}

/// The select inside an expression; nullptr when there is none.
[[nodiscard]] inline const Select *selectIn(const Expression &expression)
{
    if (const auto *exists = expression.as<ExistsTest>())
        return exists->select.get();
    if (const auto *inner = expression.as<SubSelect>())
        return inner->select.get();
    const auto *test = expression.as<SelectTest>();
    return test ? test->select.get() : nullptr;
}

/// Calls `visit` with the condition of each join.
template<class Visit> void forEachCondition(const FromItem &item, Visit &visit)
{
    if (!item.isJoin())
        return;
    forEachCondition(*item.left, visit);
    forEachCondition(*item.right, visit);
    visit(*item.condition);
}

/// Calls `visit` with each expression of the select's own clauses and of those of the tables derived in it.
template<class Visit> void forEachExpression(const Select &select, Visit visit)
{
    for (const Source &source : select.sources) {
        if (source.derived)
            forEachExpression(*source.derived, visit);
    }
    for (const FromItem &item : select.from)
        forEachCondition(item, visit);
    for (const SelectItem &item : select.items)
        visit(*item.expression);
    for (const ExpressionPtr &each : select.groupBy)
        visit(*each);
    for (const OrderItem &item : select.orderBy)
        visit(*item.expression);
    if (select.where)
        visit(*select.where);
    if (select.having)
        visit(*select.having);
}

/// What must all hold for the condition to hold; nothing for none.
[[nodiscard]] inline std::vector<const Expression *> conjunctsOf(const ExpressionPtr &condition)
{
    if (!condition)
        return {};
    const auto *chain = condition->as<Chain>();
    if (!chain || chain->links.front().op != Operator::And)
        return {condition.get()};
    std::vector<const Expression *> result{chain->first.get()};
    for (const Chain::Link &link : chain->links)
        result.push_back(link.operand.get());
    return result;
}

/// Whether nothing in it can differ from row to row. Where rows are grouped or sorted an engine may even take
/// it for the position of a column: a conversion of a literal is written as the literal.
[[nodiscard]] inline bool isConstant(const Expression &expression)
{
    if (expression.type == Type::Null)
        return true;
    const auto *call = expression.as<Call>();
    if (expression.as<ColumnReference>() || selectIn(expression) ||
        (call && call->function->form != Function::Form::Conversion))
        return false;
    bool result = true;
    forEachChild(expression, [&](const Expression &child) { result = result && isConstant(child); });
    return result;
}

} // namespace ebtq::db
