#include "database/dialect/caselessness.h"

#include <gtest/gtest.h>

namespace ebtq::db::test {

namespace {

using Operand = Caselessness::Operand;
constexpr Operand operands[] = {Operand::Column, Operand::Literal, Operand::CaselessLiteral, Operand::Other,
                                Operand::NoText};

/// For each left operand a word, in it for each right one which sides carry the collation.
std::string table(const Dialect &dialect, bool isEquality)
{
    std::string result;
    for (const Operand left : operands) {
        for (const Operand right : operands) {
            const auto sides = Caselessness(dialect).sides(left, right, isEquality);
            result += sides.left && sides.right ? '2' : sides.left ? 'l' : sides.right ? 'r' : '-';
        }
        result += ' ';
    }
    return result;
}

} // namespace

TEST(Caselessness, SidesOfAComparisonByTable)
{
    //                                                  column literal 123   other no text
    EXPECT_EQ(table(sqliteDialect(), true), /*     */ "----- -l-ll ----- -l-ll ----- ");
    EXPECT_EQ(table(sqliteDialect(), false), /*    */ "----- -llll -llll -llll ----- ");
    EXPECT_EQ(table(postgresDialect(), true), /*   */ "---r- -l-r- ----- ll-2l ---r- ");
    EXPECT_EQ(table(postgresDialect(), false), /*  */ "---r- -llr- -llr- lll2l ---r- ");
}

} // namespace ebtq::db::test
