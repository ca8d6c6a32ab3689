#pragma once

#include "library/listings/fcxx.h"
#include "library/support/blocks.h"
#include "library/support/recording_host.h"
#include "support/scripted_desktop.h"

#include <gtest/gtest.h>

namespace ebtq::test {

/// The list of listings on a recording host, with all its events written down in order.
class FcxxTest : public ::testing::Test
{
protected:
    FcxxTest()
    {
        QObject::connect(&list, &Fcxx::Message,
                         [this](const QString &text) { events += u"message "_qs + text; });
        QObject::connect(&list, &Fcxx::ErrMessage,
                         [this](const QString &text, int level, const QString &title) {
                             events += u"error %1|%2|%3"_qs.arg(text).arg(level).arg(title);
                         });
        QObject::connect(&list, &Fcxx::RefreshGetGridStatus,
                         [this] { events += u"layout, %1 rows"_qs.arg(list.VS().Rows() - 1); });
        QObject::connect(&list, &Fcxx::UnLoad, [this](bool &returning) {
            events += returning ? u"unload true"_qs : u"unload false"_qs;
        });
    }

    /// Rows of the list statement with these numbers of listings; every third has two attachments.
    [[nodiscard]] static RowBlock listings(const QStringList &numbers)
    {
        QList<QStringList> rows;
        for (const QString &number : numbers) {
            QStringList row(21);
            row[1] = number;
            row[4] = rows.size() % 2 == 0 ? u"天河区"_qs : u"海珠区"_qs;
            row[5] = u"翠堤雅居"_qs;
            row[6] = u"隐栋"_qs;
            row[18] = u"张敏"_qs;
            row[19] = u"KEY-"_qs + number;
            row[20] = rows.size() % 3 == 0 ? u"2"_qs : u"0"_qs;
            rows.append(row);
        }
        return blockOf(21, rows);
    }
    void willLoad(const QStringList &numbers)
    {
        host.answer = [numbers](const SqlText &) { return listings(numbers); };
    }
    void init() { ASSERT_TRUE(list.IReportUI_Init(host, 101)); }
    bool refresh()
    {
        events.clear();
        host.forget();
        return list.IReportUI_Refresh();
    }
    [[nodiscard]] QStringList inSight()
    {
        QStringList numbers;
        for (int position = 0; position < list.VS().visibleCount(); ++position)
            numbers.append(list.VS().TextMatrix(list.VS().rowInSight(position), 1));
        return numbers;
    }
    [[nodiscard]] QString lastStatement() const { return host.statements().last().text(); }

    ScriptedDesktop desktop;
    RecordingHost host;
    QStringList events;
    Fcxx list{desktop};
};

} // namespace ebtq::test
