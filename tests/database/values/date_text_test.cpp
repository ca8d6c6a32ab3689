#include "database/values/date_text.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace ebtq {

TEST(DateText, ReadsTheFormsThatPeopleType)
{
    const char16_t *const cases[] = {
        u"2026-11-22>2026-11-22>2026-11-22",
        u" 2026-9-8 >2026-09-08>2026-9-8",
        u"2026/9/8>2026-09-08>2026-9-8",
        u"9/8/2026>2026-09-08>2026-9-8",
        u"2026-9-8 14:05>2026-09-08 14:05:00>2026-9-8 14:05:00",
        u"2026-9-8   4:05:09>2026-09-08 04:05:09>2026-9-8 4:05:09",
        u"12/31/1999 23:59:59>1999-12-31 23:59:59>1999-12-31 23:59:59",
        u"2026-9-8 00:00:00>2026-09-08>2026-9-8",
        u"1/5/2024 1:02:03 PM>2024-01-05 13:02:03>2024-1-5 13:02:03",
        u"1/5/2024 12:00 am>2024-01-05>2024-1-5",
        u"1/5/2024 12:30PM>2024-01-05 12:30:00>2024-1-5 12:30:00",
        u"2024-2-29>2024-02-29>2024-2-29",
    };
    for (const char16_t *each : cases) {
        const QStringList c = QString::fromUtf16(each).split(u'>'); // typed, stored and regional
        const auto date = parseDate(c[0]);
        ASSERT_TRUE(date) << c[0].toStdString();
        EXPECT_EQ(storedDate(*date), c[1]) << c[0].toStdString();
        EXPECT_EQ(regionalDate(*date), c[2]) << c[0].toStdString();
        std::string shown;
        appendRegionalDate(storedDate(*date).toStdString(), shown);
        EXPECT_EQ(shown, c[2].toStdString());
        EXPECT_EQ(parseDate(regionalDate(*date)), date) << "what is shown can be typed back";
    }
}

TEST(DateText, RefusesWhatIsNoDateAndShowsItAsItStands)
{
    const QString typed =
        u"1/5/2024 13:00 PM|1/5/2024 0:30 AM|1/5/2024 1:00 XM|2026-2-29|2026-13-1|31/12/2026|2026-9/8|"
        u"26-9-8|2026-9-8 25:00|2026-9-8 12|2026-9-8 12:00:00:00|2026-9-|2026-9-2026|9-8-2026|"
        u"99-9-8|20260-9-8|2026-9-8x|2026-9-8 1:2:|明天|"_qs;
    for (const QString &each : typed.split(u'|'))
        EXPECT_FALSE(parseDate(each)) << each.toStdString();
    for (const std::string text :
         {"", "2026-9-8", "2026-09-08T10:00:00", "20260908", "2026-09-08 10:00:0x"}) {
        std::string shown = ">";
        appendRegionalDate(text, shown);
        EXPECT_EQ(shown, ">" + text);
    }
}

} // namespace ebtq
