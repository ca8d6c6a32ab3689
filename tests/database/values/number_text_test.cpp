#include "database/values/number_text.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace ebtq {

TEST(LeadingNumber, NeverOverflows)
{
    const std::string digits(5000, '9');
    EXPECT_EQ(leadingNumber(digits), std::numeric_limits<double>::max());
    EXPECT_EQ(leadingNumber("&H" + digits), std::numeric_limits<double>::max());
    EXPECT_EQ(leadingNumber("0." + std::string(5000, '0') + '1'), 0);
}

TEST(LeadingNumber, ReadsWhatStandsInFront)
{
    const char16_t *const cases[] = {u"=0",          u"abc=0",   u"12=12",     u"  12 楼=12", u"1 2 3=123",
                                     u"-3.5万=-3.5", u"+7=7",    u"- 7=-7",    u".5=0.5",     u"5.=5",
                                     u".=0",         u"-=0",     u"1.2.3=1.2", u"1,234=1",    u"1e3=1000",
                                     u"1E-2x=0.01",  u"5e=5",    u"5e+=5",     u"2d2=200",    u"&H1F=31",
                                     u"&hff楼=255",  u"&O17=15", u"&o8=0",     u"&=0",        u"&X1=0",
                                     u"\t1\n2=12",   u"１２=0",  u"1e-400=0",  u"-0=0"};
    for (const char16_t *each : cases) {
        const QStringList c = QString::fromUtf16(each).split(u'=');
        EXPECT_EQ(leadingNumber(c[0]), c[1].toDouble()) << c[0].toStdString();
    }
    EXPECT_EQ(leadingNumber(QStringView(u"1e400")), std::numeric_limits<double>::max());
    EXPECT_EQ(leadingNumber(QStringView(u"-1e999")), std::numeric_limits<double>::lowest());
    EXPECT_FALSE(std::signbit(leadingNumber(QStringView(u"-0"))));
}

TEST(NumberText, HasFifteenDigitsAndNoTrailingZero)
{
    const std::pair<double, const char *> cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {586, "586"},
        {128.5, "128.5"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {-2.50, "-2.5"},
        {999999999999999, "999999999999999"},
        {1e15, "1E+15"},
        {1.5e300, "1.5E+300"},
        {0.0001, "0.0001"},
        {0.00001, "1E-05"},
        {123456789.123456789, "123456789.123457"},
    };
    for (const auto &[number, text] : cases)
        EXPECT_EQ(numberText(number), text);
}

} // namespace ebtq
