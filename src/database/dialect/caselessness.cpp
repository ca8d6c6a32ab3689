#include "database/dialect/caselessness.h"

#include "database/dialect/text_match.h"

namespace ebtq::db {

namespace {

bool isLiteral(Caselessness::Operand operand)
{
    return operand == Caselessness::Operand::Literal || operand == Caselessness::Operand::CaselessLiteral;
}

bool isColumn(Caselessness::Operand operand)
{
    return operand == Caselessness::Operand::Column || operand == Caselessness::Operand::UnindexedColumn;
}

} // namespace

Caselessness::Operand Caselessness::operandOf(const Expression &expression)
{
    if (const auto *text = expression.as<TextLiteral>())
        return isCaseless(text->value) ? Operand::CaselessLiteral : Operand::Literal;
    if (const auto *column = expression.as<ColumnReference>())
        return column->isUnindexed && expression.type == Type::Text ? Operand::UnindexedColumn
                                                                    : Operand::Column;
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

/// An index holds folded texts, so a column that begins one stays as it is.
Caselessness::Sides Caselessness::sides(Operand left, Operand right, bool isEquality) const
{
    const auto collatedIf = [](bool isCollated) { return isCollated ? Form::Collated : Form::Plain; };
    const auto exactForm = [this](Operand operand) {
        return m_hasExactForm && operand == Operand::UnindexedColumn ? Form::Exact : Form::Plain;
    };
    const bool hasNoCase =
        isEquality && (left == Operand::CaselessLiteral || right == Operand::CaselessLiteral);
    if (hasNoCase)
        return {exactForm(left), exactForm(right)};
    if (!m_onBothSides)
        return {collatedIf(isCollatedAlone(left) && !isColumn(right)), Form::Plain};
    return {collatedIf(left == Operand::Other || (isLiteral(left) && isLiteral(right))),
            collatedIf(isCollatedAfter(right))};
}

} // namespace ebtq::db
