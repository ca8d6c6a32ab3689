#include "database/values/date_text.h"

#include <gtest/gtest.h>

namespace ebtq {

TEST(DateText, ReadsTheFormsThatPeopleType)
{
    struct Case
    {
        const char16_t *typed;
        const char16_t *stored; ///< empty when refused
        const char16_t *regional;
    };
    const Case cases[] = {
        {u"2026-11-22", u"2026-11-22", u"2026-11-22"},
        {u" 2026-9-8 ", u"2026-09-08", u"2026-9-8"},
        {u"2026/9/8", u"2026-09-08", u"2026-9-8"},
        {u"9/8/2026", u"2026-09-08", u"2026-9-8"},
        {u"2026-9-8 14:05", u"2026-09-08 14:05:00", u"2026-9-8 14:05:00"},
        {u"2026-9-8 4:05:09", u"2026-09-08 04:05:09", u"2026-9-8 4:05:09"},
        {u"12/31/1999 23:59:59", u"1999-12-31 23:59:59", u"1999-12-31 23:59:59"},
        {u"2026-9-8 00:00:00", u"2026-09-08", u"2026-9-8"},
        {u"1/5/2024 1:02:03 PM", u"2024-01-05 13:02:03", u"2024-1-5 13:02:03"},
        {u"1/5/2024 12:00 am", u"2024-01-05", u"2024-1-5"},
        {u"1/5/2024 12:30PM", u"2024-01-05 12:30:00", u"2024-1-5 12:30:00"},
        {u"1/5/2024 13:00 PM", u"", u""},
        {u"1/5/2024 0:30 AM", u"", u""},
        {u"1/5/2024 1:00 XM", u"", u""},
        {u"2024-2-29", u"2024-02-29", u"2024-2-29"},
        {u"2026-2-29", u"", u""},
        {u"2026-13-1", u"", u""},
        {u"31/12/2026", u"", u""},
        {u"2026-9/8", u"", u""},
        {u"26-9-8", u"", u""},
        {u"2026-9-8 25:00", u"", u""},
        {u"2026-9-8 12", u"", u""},
        {u"2026-9-8 12:00:00:00", u"", u""},
        {u"2026-9-", u"", u""},
        {u"2026-9-2026", u"", u""},
        {u"9-8-2026", u"", u""},
        {u"99-9-8", u"", u""},
        {u"20260-9-8", u"", u""},
        {u"2026-9-8x", u"", u""},
        {u"2026-9-8 1:2:", u"", u""},
        {u"2026-9-8   1:02", u"2026-09-08 01:02:00", u"2026-9-8 1:02:00"},
        {u"明天", u"", u""},
        {u"", u"", u""},
    };
    for (const Case &c : cases) {
        const auto date = parseDate(c.typed);
        const QString name = QString::fromUtf16(c.typed);
        ASSERT_EQ(date.has_value(), c.stored[0] != 0) << name.toStdString();
        if (!date)
            continue;
        EXPECT_EQ(storedDate(*date), QString::fromUtf16(c.stored)) << name.toStdString();
        EXPECT_EQ(regionalDate(*date), QString::fromUtf16(c.regional)) << name.toStdString();
        std::string shown;
        appendRegionalDate(storedDate(*date).toStdString(), shown);
        EXPECT_EQ(shown, QString::fromUtf16(c.regional).toStdString());
        EXPECT_EQ(parseDate(regionalDate(*date)), date) << "what is shown can be typed back";
    }
}

TEST(DateText, ShowsAForeignTextAsItStands)
{
    for (const std::string text :
         {"", "2026-9-8", "2026-09-08T10:00:00", "20260908", "2026-09-08 10:00:0x"}) {
        std::string shown = ">";
        appendRegionalDate(text, shown);
        EXPECT_EQ(shown, ">" + text);
    }
}

} // namespace ebtq
