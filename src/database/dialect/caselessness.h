#pragma once

#include "database/dialect/dialect.h"
#include "database/dialect/tree.h"

namespace ebtq::db {

/// Which operands need a collation to compare without regard to case. Columns have one by their declared
/// type, a literal inherits the other side's; any other text needs it. It is omitted where the result cannot
/// depend on it, because engines compare bytes faster.
class Caselessness
{
public:
    enum class Operand : quint8 {
        NoText,
        Column,
        UnindexedColumn,
        Literal,
        CaselessLiteral, ///< of digits, punctuation and ideographs only
        Other,
    };
    enum class Form : quint8 {
        Plain,
        Collated,
        Exact, ///< compared by bytes
    };
    struct Sides
    {
        Form left = Form::Plain;
        Form right = Form::Plain;
    };

    explicit Caselessness(const Dialect &dialect)
        : m_onBothSides(dialect.bothSidesNeedCollation)
        , m_hasExactForm(*dialect.exactType != '\0')
    {}

    [[nodiscard]] static Operand operandOf(const Expression &expression);

    /// How the sides of a comparison are written.
    [[nodiscard]] Sides sides(Operand left, Operand right, bool isEquality) const;
    /// Whether a value needs it that the engine compares with other rows, as in a sorted list, or that
    /// precedes `in` or `between`.
    [[nodiscard]] static bool isCollatedAlone(Operand operand);
    /// Whether an item of `in` or a bound of `between` needs it.
    [[nodiscard]] bool isCollatedAfter(Operand operand) const;
    /// Whether any item, bound or column of a sub-select can need it.
    [[nodiscard]] bool isOnBothSides() const { return m_onBothSides; }
    /// Whether an expression of group by must be written identically everywhere: the engine matches it by
    /// form.
    [[nodiscard]] bool keepsForm(const Expression &expression) const
    {
        return m_onBothSides && expression.isGrouped;
    }

private:
    bool m_onBothSides;
    bool m_hasExactForm;
};

} // namespace ebtq::db
