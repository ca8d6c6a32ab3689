#include "library/listings/fcxx_fixture.h"

using namespace ebtq;
using ebtq::test::FcxxTest;

namespace {

class FcxxSearchTest : public FcxxTest
{
protected:
    void SetUp() override
    {
        init();
        willLoad({u"FY14"_qs, u"fy13"_qs, u"FY12"_qs, u"FY11"_qs});
        ASSERT_TRUE(refresh());
    }
    void searchFor(const QString &text)
    {
        list.SearchBox1().setText(text);
        list.SearchBox1().searchNow();
    }
};

TEST_F(FcxxSearchTest, WithoutTheFilterTheFirstMatchBecomesCurrent)
{
    struct Case
    {
        QString text;
        int row;
    };
    const Case cases[] = {
        {u"FY1"_qs, 1},         {u"fy"_qs, 2},    {u"海珠"_qs, 2},      {u"FY11"_qs, 4},
        {u"海珠区%翠堤"_qs, 2}, {u"隐栋"_qs, -1}, {u"KEY-FY12"_qs, -1}, {u"没有"_qs, -1},
    };
    for (const Case &c : cases) {
        list.VS().setRow(3);
        events.clear();
        searchFor(c.text);
        EXPECT_EQ(events, c.row < 0 ? QStringList(u"message 没有找到："_qs + c.text) : QStringList());
        EXPECT_EQ(list.VS().Row(), c.row < 0 ? 3 : c.row) << c.text.toStdString();
        EXPECT_EQ(inSight().size(), 4) << "nothing is hidden";
        EXPECT_TRUE(list.VS().Redraw());
    }
    list.VS().setCol(19);
    searchFor(u"KEY-FY12"_qs);
    EXPECT_EQ(list.VS().Row(), 3) << "the current column is searched even when it cannot be seen";
}

TEST_F(FcxxSearchTest, WithTheFilterOtherRowsAreHidden)
{
    list.VS().setRow(2);
    list.ChkFind().setValue(1);
    EXPECT_TRUE(list.SearchBox1().FilterFlag());
    EXPECT_EQ(inSight().size(), 4) << "an empty box touches nothing";
    searchFor(u"天河"_qs);
    EXPECT_EQ(inSight(), QStringList({u"FY14"_qs, u"FY12"_qs}));
    EXPECT_EQ(list.VS().Row(), 2) << "filtering moves no row";
    events.clear();
    searchFor(u"没有"_qs);
    EXPECT_EQ(events, QStringList()) << "the empty list says it";
    searchFor(u"FY1"_qs);
    EXPECT_EQ(inSight(), QStringList({u"FY14"_qs, u"FY12"_qs, u"FY11"_qs})) << "searched anew in all rows";
    list.SearchBox1().setText({});
    EXPECT_EQ(inSight().size(), 4);
}

TEST_F(FcxxSearchTest, TheTickSearchesAgainWithThePresentText)
{
    list.SearchBox1().setText(u"海珠"_qs);
    list.ChkFind().setValue(1);
    EXPECT_EQ(inSight(), QStringList({u"fy13"_qs, u"FY11"_qs}));
    list.ChkFind().setValue(0);
    EXPECT_FALSE(list.SearchBox1().FilterFlag());
    EXPECT_EQ(inSight().size(), 4);
    EXPECT_EQ(list.VS().Row(), 2);
}

TEST_F(FcxxSearchTest, ARefreshSearchesTheNewRows)
{
    list.ChkFind().setValue(1);
    searchFor(u"天河"_qs);
    willLoad({u"FY22"_qs, u"FY21"_qs, u"FY20"_qs});
    EXPECT_TRUE(refresh());
    EXPECT_EQ(inSight(), QStringList({u"FY22"_qs, u"FY20"_qs}));
    EXPECT_EQ(events, QStringList({u"layout, 3 rows"_qs, u"message 共加载3条记录"_qs}))
        << "hidden rows count";
    list.ChkFind().setValue(0);
    searchFor(u"FY20"_qs);
    EXPECT_TRUE(refresh());
    EXPECT_EQ(list.VS().Row(), 3);
}

TEST_F(FcxxSearchTest, SearchingNeverAsksTheDatabase)
{
    host.forget();
    list.ChkFind().setValue(1);
    searchFor(u"天'河"_qs);
    EXPECT_EQ(host.calls(), QStringList()) << "not even to let go of it: a save may be under way";
    EXPECT_TRUE(inSight().isEmpty());
}

} // namespace
