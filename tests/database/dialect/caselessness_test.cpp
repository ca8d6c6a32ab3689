#include "database/dialect/caselessness.h"

#include <gtest/gtest.h>

namespace ebtq::db::test {

namespace {

using Operand = Caselessness::Operand;
using Form = Caselessness::Form;
constexpr Operand operands[] = {Operand::Column,          Operand::UnindexedColumn, Operand::Literal,
                                Operand::CaselessLiteral, Operand::Other,           Operand::NoText};

/// For each left operand a word, in it for each right one which sides are collated, and x for an exact one.
std::string table(const Dialect &dialect, bool isEquality)
{
    std::string result;
    for (const Operand left : operands) {
        for (const Operand right : operands) {
            const auto sides = Caselessness(dialect).sides(left, right, isEquality);
            const bool isLeft = sides.left == Form::Collated;
            const bool isRight = sides.right == Form::Collated;
            const bool isExact = sides.left == Form::Exact || sides.right == Form::Exact;
            result += isExact ? 'x' : isLeft && isRight ? '2' : isLeft ? 'l' : isRight ? 'r' : '-';
        }
        result += ' ';
    }
    return result;
}

} // namespace

TEST(Caselessness, SidesOfAComparisonByTable)
{
    // column, unindexed one, literal, 123, other, no text
    EXPECT_EQ(table(sqliteDialect(), true), "------ ------ --l-ll ------ --l-ll ------ ");
    EXPECT_EQ(table(sqliteDialect(), false), "------ ------ --llll --llll --llll ------ ");
    EXPECT_EQ(table(postgresDialect(), true), "----r- ---xr- --l-r- -x---- lll-2l ----r- ");
    EXPECT_EQ(table(postgresDialect(), false), "----r- ----r- --llr- --llr- llll2l ----r- ");
}

} // namespace ebtq::db::test
