#pragma once

#include "database/dialect/limits.h"
#include "database/dialect/tree.h"

namespace ebtq::db {

/// Types of one class can be compared with each other.
enum class TypeClass : quint8 { Any, Text, Numeric, Date, Binary };

[[nodiscard]] TypeClass classOf(Type type);
[[nodiscard]] Type typeOf(ColumnType type);
[[nodiscard]] ColumnType columnTypeOf(Type type);
/// What people call it, as in "应为数字".
[[nodiscard]] QString nameOf(Type type);
[[nodiscard]] bool isLiteral(const Expression &expression);
[[nodiscard]] bool isNumeric(Type type);
[[nodiscard]] bool isNumericOrNull(Type type);

/// The type that both convert to: numbers stay numbers, anything combined with a text becomes text.
[[nodiscard]] Type commonType(Type one, Type other);

/// Converts an expression to the wanted type: a literal at once if it parses, anything else by a conversion
/// that runs with the statement. False, with nothing changed, where the dialect has no conversion.
[[nodiscard]] bool coerce(ExpressionPtr &expression, Type wanted);

/// An expression that replaces or encloses `like`.
template<class Node> ExpressionPtr makeTyped(Node node, const Expression &like, Type type)
{
    return std::make_unique<Expression>(
        Expression{std::move(node), like.position, like.end, type, like.height + limits::heightOfRendering});
}

} // namespace ebtq::db
