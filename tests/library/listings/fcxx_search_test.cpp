#include "library/listings/fcxx_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

class FcxxSearchTest : public FcxxTest
{
protected:
    void SetUp() override
    {
        store(u"FY14 fy13 FY12 FY11"_qs);
        open(host::ListingModule);
        app.statements.clear();
    }
    void searchFor(const QString &text)
    {
        list.SearchBox1().setText(text);
        list.SearchBox1().searchNow();
    }
};

TEST_F(FcxxSearchTest, WithoutTheFilterTheFirstMatchBecomesCurrent)
{
    const std::pair<QString, int> cases[] = {
        {u"FY1"_qs, 1},         {u"fy"_qs, 2},    {u"海珠"_qs, 2},      {u"FY11"_qs, 4},
        {u"海珠区%翠堤"_qs, 2}, {u"隐栋"_qs, -1}, {u"KEY-FY12"_qs, -1}, {u"没有'"_qs, -1},
    };
    for (const auto &[text, row] : cases) {
        list.VS().setRow(3);
        events.clear();
        searchFor(text);
        EXPECT_EQ(events, row < 0 ? QStringList(u"没有找到："_qs + text) : QStringList());
        EXPECT_EQ(list.VS().Row(), row < 0 ? 3 : row) << text.toStdString();
        EXPECT_EQ(list.VS().visibleCount(), 4) << "nothing is hidden";
        EXPECT_TRUE(list.VS().Redraw());
    }
    list.VS().setCol(ListingKey);
    searchFor(u"KEY-FY12"_qs);
    EXPECT_EQ(list.VS().Row(), 3) << "the current column is searched even when it cannot be seen";
    EXPECT_TRUE(app.statements.filter(u"fyxx"_qs).isEmpty()) << "the loaded rows are searched";
}

TEST_F(FcxxSearchTest, WithTheFilterOtherRowsAreHidden)
{
    list.VS().setRow(2);
    list.ChkFind().setValue(1);
    EXPECT_TRUE(list.SearchBox1().FilterFlag());
    EXPECT_EQ(list.VS().visibleCount(), 4) << "an empty box touches nothing";
    searchFor(u"天河"_qs);
    EXPECT_EQ(shown(), u"FY14 FY12");
    EXPECT_EQ(list.VS().Row(), 2) << "filtering moves no row";
    events.clear();
    searchFor(u"没有"_qs);
    EXPECT_EQ(events, QStringList()) << "the empty list says it";
    searchFor(u"FY1"_qs);
    EXPECT_EQ(shown(), u"FY14 FY12 FY11") << "searched anew in all rows";
    list.SearchBox1().setText({});
    EXPECT_EQ(list.VS().visibleCount(), 4);
}

TEST_F(FcxxSearchTest, TheTickAndARefreshSearchAgainWithThePresentText)
{
    list.SearchBox1().setText(u"海珠"_qs);
    list.ChkFind().setValue(1);
    EXPECT_EQ(shown(), u"fy13 FY11");
    store(u"FY22 FY21 FY20 FY19"_qs);
    EXPECT_TRUE(refresh());
    EXPECT_EQ(shown(), u"FY21 FY19");
    EXPECT_EQ(events.last(), u"共加载4条记录") << "hidden rows count";
    list.ChkFind().setValue(0);
    EXPECT_FALSE(list.SearchBox1().FilterFlag());
    EXPECT_EQ(list.VS().visibleCount(), 4);
    EXPECT_EQ(list.VS().Row(), 2);
    searchFor(u"FY20"_qs);
    EXPECT_TRUE(refresh());
    EXPECT_EQ(list.VS().Row(), 3);
}

} // namespace
