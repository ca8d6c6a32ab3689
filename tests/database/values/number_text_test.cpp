#include "database/values/number_text.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace ebtq {

TEST(LeadingNumber, ReadsWhatStandsInFrontAndNeverOverflows)
{
    const QString cases =
        u"=0|abc=0|12=12|  12 楼=12|1 2 3=123|-3.5万=-3.5|+7=7|- 7=-7|.5=0.5|5.=5|.=0|-=0|"
        u"1.2.3=1.2|1,234=1|1e3=1000|1E-2x=0.01|5e=5|5e+=5|2d2=200|&H1F=31|&hff楼=255|&O17=15|"
        u"&o8=0|&=0|&X1=0|\t1\n2=12|１２=0|1e-400=0|-0=0"_qs;
    for (const QString &each : cases.split(u'|')) {
        const QStringList c = each.split(u'=');
        EXPECT_EQ(leadingNumber(c[0]), c[1].toDouble()) << c[0].toStdString();
    }
    EXPECT_EQ(leadingNumber(QStringView(u"1e400")), std::numeric_limits<double>::max());
    EXPECT_EQ(leadingNumber(QStringView(u"-1e999")), std::numeric_limits<double>::lowest());
    EXPECT_FALSE(std::signbit(leadingNumber(QStringView(u"-0"))));
    const std::string digits(5000, '9');
    EXPECT_EQ(leadingNumber(digits), std::numeric_limits<double>::max());
    EXPECT_EQ(leadingNumber("&H" + digits), std::numeric_limits<double>::max());
    EXPECT_EQ(leadingNumber("0." + std::string(5000, '0') + '1'), 0);
}

} // namespace ebtq
