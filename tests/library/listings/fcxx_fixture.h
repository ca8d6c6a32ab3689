#pragma once

#include "host/module_ids.h"
#include "library/followups/frm_gj.h"
#include "library/listings/fcxx.h"
#include "library/listings/fcxx_tables.h"
#include "library/listings/frm_fx_fixture.h"
#include "library/support/list_test.h"

namespace ebtq::test {

/// The list of listings over a database, with all its events written down in order.
class FcxxTest : public ListTest<Fcxx>
{
protected:
    FcxxTest()
    {
        QObject::connect(&list, &Fcxx::RefreshGetGridStatus,
                         [this] { events += u"layout, %1 rows"_qs.arg(list.VS().Rows() - 1); });
        QObject::connect(&list, &Fcxx::UnLoad, [this](bool &returning) {
            events += returning ? u"unload true"_qs : u"unload false"_qs;
        });
    }

    /// Leaves listings with these numbers, from the top of the list; every third has two attachments.
    void store(const QString &numbers)
    {
        connection->execute(u"delete from fyxx"_qs);
        connection->execute(u"delete from pubAttach"_qs);
        int at = 0;
        for (const QString &number : numbers.split(u' ', Qt::SkipEmptyParts)) {
            connection->execute(u"insert into fyxx (房源ID,房源编号,地区,楼盘字典,栋座位置) values "
                                u"('KEY-%1','%1','%2','翠堤雅居','隐栋')"_qs.arg(
                                    number, at % 2 == 0 ? u"天河区"_qs : u"海珠区"_qs));
            for (int attachment = 0; attachment < (at % 3 == 0 ? 2 : 0); ++attachment)
                connection->execute(u"insert into pubAttach (progID,IDs,filename,isActive,isPicture) values "
                                    u"(101,'KEY-%1','f',1,0)"_qs.arg(number));
            ++at;
        }
    }
    void init() { ASSERT_TRUE(list.IReportUI_Init(app, host::ListingModule)); }
    bool refresh()
    {
        events.clear();
        app.statements.clear();
        app.releases = 0;
        return list.IReportUI_Refresh();
    }
    [[nodiscard]] QString shown() { return columnText(list.VS(), ListingNumber); }
};

/// The list over three listings, with its editors: what one opens and the other brings back.
class FcxxEditorTest : public FcxxTest
{
protected:
    FcxxEditorTest()
    {
        open(host::ListingModule);
        for (int number = 0; number < 3; ++number)
            makeListing(ListingTexts::required);
        connection->execute(u"update fyxx set 楼盘字典='东湖名苑' where 房源编号='FY2026110002'"_qs);
        EXPECT_TRUE(refresh());
        events.clear();
    }
    [[nodiscard]] FrmFx &editor() const { return *list.mFrmFx(); }
    void save(const QString &texts)
    {
        ListingTexts::fill(editor(), texts);
        editor().Cmd(0).press();
    }
    void makeListing(const QString &texts)
    {
        desktop.willAnswer(Desktop::Answer::No);
        edit(u"new"_qs, [&] { save(texts); });
        (void)asked();
    }
    void writeFollowUp(const std::function<void(FrmGj &)> &act = [](FrmGj &) {})
    {
        edit(u"gj"_qs, [this, act] {
            act(*list.mFrmGj());
            list.mFrmGj()->Cmd(0).press();
        });
    }
};

} // namespace ebtq::test
