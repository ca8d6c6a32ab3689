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

/// Whether nothing in it can differ from row to row. Where rows are grouped or sorted an engine may even take
/// it for the position of a column: a conversion of a literal is written as the literal.
[[nodiscard]] inline bool isConstant(const Expression &expression)
{
    const auto *call = expression.as<Call>();
    if (expression.as<ColumnReference>() || expression.as<SubSelect>() || expression.as<ExistsTest>() ||
        expression.as<SelectTest>() || (call && call->function->form != Function::Form::Conversion))
        return false;
    bool result = true;
    forEachChild(expression, [&](const Expression &child) { result = result && isConstant(child); });
    return result;
}

} // namespace ebtq::db
