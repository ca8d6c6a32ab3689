#include "database/dialect/caselessness.h"

#include "database/dialect/text_match.h"

namespace ebtq::db {

namespace {

bool isLiteral(Caselessness::Operand operand)
{
    return operand == Caselessness::Operand::Literal || operand == Caselessness::Operand::CaselessLiteral;
}

} // namespace

Caselessness::Operand Caselessness::operandOf(const Expression &expression)
{
    if (const auto *text = expression.as<TextLiteral>())
        return isCaseless(text->value) ? Operand::CaselessLiteral : Operand::Literal;
    if (expression.as<ColumnReference>())
        return Operand::Column;
    return expression.type == Type::Text ? Operand::Other : Operand::NoText;
}

bool Caselessness::isCollatedAlone(Operand operand)
{
    return operand == Operand::Other || isLiteral(operand);
}

bool Caselessness::isCollatedAfter(Operand operand) const
{
    return m_onBothSides && operand == Operand::Other;
}

Caselessness::Sides Caselessness::sides(Operand left, Operand right, bool isEquality) const
{
    const bool hasNoCase =
        isEquality && (left == Operand::CaselessLiteral || right == Operand::CaselessLiteral);
    if (hasNoCase)
        return {false, false};
    if (!m_onBothSides)
        return {isCollatedAlone(left) && right != Operand::Column, false};
    return {left == Operand::Other || (isLiteral(left) && isLiteral(right)), isCollatedAfter(right)};
}

} // namespace ebtq::db
