#pragma once

#include "library/listings/fcxx.h"
#include "library/support/agency_test.h"

namespace ebtq::test {

/// The list of listings over a database, with all its events written down in order.
class FcxxTest : public AgencyTest
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

    /// Leaves listings with these numbers, from the top of the list; every third has two attachments.
    void store(const QStringList &numbers)
    {
        connection->execute(u"delete from fyxx"_qs);
        connection->execute(u"delete from pubAttach"_qs);
        for (qsizetype at = 0; at < numbers.size(); ++at) {
            connection->execute(u"insert into fyxx (房源ID,房源编号,地区,楼盘字典,栋座位置) values "
                                u"('KEY-%1','%1','%2','翠堤雅居','隐栋')"_qs.arg(
                                    numbers[at], at % 2 == 0 ? u"天河区"_qs : u"海珠区"_qs));
            for (int attachment = 0; attachment < (at % 3 == 0 ? 2 : 0); ++attachment)
                connection->execute(u"insert into pubAttach (progID,IDs,filename,isActive,isPicture) values "
                                    u"(101,'KEY-%1','f',1,0)"_qs.arg(numbers[at]));
        }
    }
    void init() { ASSERT_TRUE(list.IReportUI_Init(app, 101)); }
    bool refresh()
    {
        events.clear();
        app.statements.clear();
        app.releases = 0;
        return list.IReportUI_Refresh();
    }
    /// A statement that fails stands for the next ones of the list.
    void failWith(const QString &message)
    {
        app.asRun = [message](const SqlText &) { return SqlText(u"select 1 as 号 from "_qs + message); };
    }
    [[nodiscard]] QStringList inSight()
    {
        QStringList numbers;
        for (int position = 0; position < list.VS().visibleCount(); ++position)
            numbers.append(list.VS().TextMatrix(list.VS().rowInSight(position), 1));
        return numbers;
    }
    [[nodiscard]] QString rowText(int row)
    {
        QStringList cells;
        for (int col = 0; col < list.VS().Cols(); ++col)
            cells.append(list.VS().TextMatrix(row, col));
        return cells.join(u'|');
    }
    [[nodiscard]] QString lastStatement() const { return app.lastStatement.text(); }

    Fcxx list{desktop};
};

} // namespace ebtq::test
