#pragma once

#include "database/dialect/dialect.h"
#include "database/dialect/tree.h"

namespace ebtq::db {

/// Where an engine has to be told to compare texts without regard to case. Columns do so by their own type
/// and collation, a literal takes over the other side's; any other text has to carry the collation, and it is
/// left away where the outcome cannot depend on it, because engines compare bytes faster.
class Caselessness
{
public:
    enum class Operand : quint8 {
        NoText,
        Column,
        Literal,
        CaselessLiteral, ///< one of digits, signs and ideographs
        Other,
    };
    struct Sides
    {
        bool left;
        bool right;
        [[nodiscard]] bool operator==(const Sides &) const = default;
    };

    explicit Caselessness(const Dialect &dialect)
        : m_onBothSides(dialect.bothSidesNeedCollation)
    {}

    [[nodiscard]] static Operand operandOf(const Expression &expression);

    /// Which sides of a comparison carry the collation.
    [[nodiscard]] Sides sides(Operand left, Operand right, bool isEquality) const;
    /// Whether a value carries it that the engine compares with others by itself, as in a sorted list, or
    /// that stands before `in` or `between`.
    [[nodiscard]] static bool isCollatedAlone(Operand operand);
    /// Whether an item of `in` or a bound of `between` does.
    [[nodiscard]] bool isCollatedAfter(Operand operand) const;
    /// Whether any item, bound or column of a sub-select can.
    [[nodiscard]] bool isOnBothSides() const { return m_onBothSides; }
    /// Whether an expression of group by is written alike everywhere: the engine knows it again by its form.
    [[nodiscard]] bool keepsForm(const Expression &expression) const
    {
        return m_onBothSides && expression.isGrouped;
    }

private:
    bool m_onBothSides;
};

} // namespace ebtq::db
