#include "contracts/conversions.h"
#include "contracts/host_contracts.h"
#include "contracts/null_conv.h"
#include "database/values/date_text.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ebtq;

namespace {

TEST(Conversions, FormatWritesNumbersByTheirPattern)
{
    // What a person sees is rounded, not its binary neighbour, and away from zero, not to even.
    const QString cases = u"4.8888 #0.00 4.89|0 #0.00 0.00|0.5 #0.00 0.50|1.005 #0.00 1.01|2.675 #0.00 2.68|"
                          u"-1.005 #0.00 -1.01|-0.001 #0.00 0.00|0.005 #0.00 0.01|0.0049 #0.00 0.00|"
                          u"9.995 #0.00 10.00|0.95 0 1|0.5 ##0 1|2.5 ##0 3|0 ##0 0|0 # |7 000 007|7 0#0 007|"
                          u"999 #,##0 999|1000 #,##0 1,000|999999.5 #,##0 1,000,000|"
                          u"-1234567.891 #,##0.00 -1,234,567.89|1234567 #,###,##0.00 1,234,567.00|"
                          u"0.25 #,###,##0.00 0.25|5 0.## 5|5.1 0.0## 5.1|1e15 #,##0 1,000,000,000,000,000|"
                          u"1e-20 #0.00 0.00|1.5  1.5|1.5 yyyy 1.5|1.5 0.0.0 1.5"_qs;
    for (const QString &each : cases.split(u'|')) {
        const QStringList c = each.split(u' ');
        EXPECT_EQ(Format(c[0].toDouble(), c[1]), c[2]) << each.toStdString();
    }
    const QString twoDigits = u"#0.00"_qs;
    EXPECT_EQ(Format(u"12.345"_qs, twoDigits), u"12.35");
    EXPECT_EQ(Format(u"12.5万"_qs, twoDigits), u"12.5万");
    EXPECT_EQ(Format(QString(), twoDigits) + Format({}, twoDigits), QString());
    EXPECT_EQ(Format(QDateTime(QDate(2026, 9, 8), QTime(0, 0)), twoDigits), u"2026-9-8");
}

TEST(Conversions, DatesAreReadAsPeopleTypeThem)
{
    const QString cases =
        u"2026.12.3 2026-12-3|２０２６．１２．３ 2026-12-3|2026年12月3日 2026-12-3|20261203 2026-12-3|"
        u"12-3 2026-12-3|1/5 2026-1-5|12月3号 2026-12-3|12.31 2026-12-31|前天 2026-12-28|"
        u"　今天  2026-12-30|后天 2027-1-1|+7 2027-1-6|-30 2026-11-30|2026/9/8 2026-9-8|"
        u"9/8/2026 2026-9-8|2026.12.3_14:05 2026-12-3_14:05:00|2-30 !|20261303 !|26.12.3 !|"
        u"2026.12 !|12-3x !|7 !|+ !|+12345 !|大后天 !|1月32日 !| !"_qs;
    for (const QString &each : cases.split(u'|')) {
        const QString typed = each.section(u' ', 0, -2).replace(u'_', u' ');
        const auto date = TypedDate(typed, QDate(2026, 12, 30));
        EXPECT_EQ(date ? regionalDate(*date).replace(u' ', u'_') : u"!"_qs, each.section(u' ', -1))
            << each.toStdString();
    }
}

TEST(Conversions, ValuesBecomeTextAndNumbers)
{
    const std::tuple<QVariant, QString, double, int> cases[] = {
        {{}, QString(), 0, 0},
        {u""_qs, QString(), 0, 0},
        {120.0, u"120"_qs, 120, 120},
        {120.5, u"120.5"_qs, 120.5, 120}, // half to even
        {121.5, u"121.5"_qs, 121.5, 122},
        {-7, u"-7"_qs, -7, -7},
        {qlonglong(1) << 30, u"1073741824"_qs, 1073741824, 1073741824},
        {u" 3 2室"_qs, u" 3 2室"_qs, 32, 32},
        {u"室3"_qs, u"室3"_qs, 0, 0},
        {QDateTime(QDate(2026, 9, 8), QTime(14, 5, 9)), u"2026-9-8 14:05:09"_qs, 2026, 2026},
        {QDate(2026, 12, 31), u"2026-12-31"_qs, 2026, 2026},
        {true, u"True"_qs, 0, 0},
    };
    for (const auto &[value, text, number, whole] : cases) {
        EXPECT_EQ(NullConv::ToText(value), text);
        EXPECT_EQ(Val(value), number) << text.toStdString();
        EXPECT_EQ(NullConv::ToLong(value), whole) << text.toStdString();
        EXPECT_EQ(NullConv::ToNumber(value).toDouble(), number) << text.toStdString();
    }
    EXPECT_EQ(NullConv::ToNumber({}).userType(), QMetaType::Int);
    EXPECT_THROW((void)NullConv::ToLong(u"3000000000"_qs), Failure);
    EXPECT_THROW((void)NullConv::ToLong(u"-1e999"_qs), Failure);
}

TEST(Conversions, NumbersInStatementsNeverHaveAnExponent)
{
    EXPECT_EQ(PlainDecimal(12), u"12"_qs);
    EXPECT_EQ(PlainDecimal(-0.5), u"-0.5"_qs);
    EXPECT_EQ(PlainDecimal(1e15), u"1000000000000000"_qs);
    EXPECT_EQ(PlainDecimal(0.00001), u"0.00001"_qs);
    EXPECT_EQ(PlainDecimal(Val(u"1e999"_qs)).size(), 309) << "the largest number, digit by digit";
    EXPECT_THROW((void)PlainDecimal(std::numeric_limits<double>::infinity()), Failure);
}

TEST(Conversions, TrimTakesBlanksOnlyAndWholePartStaysAnInt)
{
    EXPECT_EQ(Trim(u"  天河 区 "), u"天河 区"_qs);
    EXPECT_EQ(Trim(u"\t天河\u3000"), u"\t天河\u3000"_qs);
    EXPECT_EQ(Trim(u"   "), QString());
    EXPECT_EQ(Trim({}), QString());
    EXPECT_EQ(WholePart(2.99), 2);
    EXPECT_EQ(WholePart(-2.99), -2);
    EXPECT_EQ(WholePart(1e300), std::numeric_limits<int>::max());
    EXPECT_EQ(WholePart(-1e300), std::numeric_limits<int>::min());
    EXPECT_EQ(WholePart(std::numeric_limits<double>::quiet_NaN()), 0);
}

} // namespace
