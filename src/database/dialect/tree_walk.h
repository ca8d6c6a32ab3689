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

} // namespace ebtq::db
