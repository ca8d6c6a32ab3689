#pragma once

#include "database/dialect/limits.h"
#include "database/dialect/tree.h"

namespace ebtq::db {

/// The types that compare with one another.
enum class TypeClass : quint8 { Any, Text, Numeric, Date, Binary };

[[nodiscard]] TypeClass classOf(Type type);
[[nodiscard]] Type typeOf(ColumnType type);
[[nodiscard]] ColumnType columnTypeOf(Type type);
/// What people call it, as in "应为数字".
[[nodiscard]] QString nameOf(Type type);
[[nodiscard]] bool isLiteral(const Expression &expression);
[[nodiscard]] bool isNumeric(Type type);
[[nodiscard]] bool isNumericOrNull(Type type);

/// The type in which both can stand: numbers together are numbers, anything beside a text becomes text.
[[nodiscard]] Type commonType(Type one, Type other);

/// Turns an expression into the wanted type: a literal at once, when it reads as such, anything else by a
/// conversion that runs with the statement. False, with nothing changed, where the dialect converts nothing.
[[nodiscard]] bool coerce(ExpressionPtr &expression, Type wanted);

/// An expression in the place of `like` or around it.
template<class Node> ExpressionPtr makeTyped(Node node, const Expression &like, Type type)
{
    return std::make_unique<Expression>(
        Expression{std::move(node), like.position, like.end, type, like.height + limits::heightOfRendering});
}

} // namespace ebtq::db
