#include "host/host_parameters.h"
#include "library/listings/fcxx_fixture.h"

#include <QMetaMethod>

using namespace ebtq;
using namespace ebtq::test;

namespace {

using namespace ListingFilter;

TEST_F(FcxxTest, InitSetsUpTheScreenAndLoadsNothing)
{
    init();
    EXPECT_EQ(app.statements + events, QStringList());
    QStringList captions;
    QStringList hidden;
    for (int col = 0; col < list.VS().Cols(); ++col) {
        (list.VS().ColHidden(col) ? hidden : captions).append(list.VS().TextMatrix(0, col));
        EXPECT_EQ(list.VS().FixedAlignment(col), VSFlexGrid::AlignCentre);
    }
    EXPECT_EQ(captions.join(u'|'),
              u"|房源编号|交易|状态|城区|楼盘字典|楼层|附属房|房型|面积|朝向|装修|售总价|租总价|"
              u"委托日|部门|经纪人"_qs);
    EXPECT_EQ(hidden.join(u'|'), u"栋座|房号|房源ID|附件"_qs);
    EXPECT_EQ(list.VS().CellPicture(0, 0), u"mail-attachment"_qs);
    EXPECT_EQ(list.VS().FixedCols(), 0);
    EXPECT_EQ(list.VS().BackColorAlternate(), 0xC0FFFF);
    EXPECT_EQ(list.VS().ToolTipText(), u"提示：双击进入原始单据查询"_qs);
    EXPECT_EQ(list.XPCmb().Text(), QString());
    EXPECT_EQ(list.SearchBox1().columns(),
              QList<int>({0, 1, 2, 3, 4, 5, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}));
}

TEST_F(FcxxTest, EventsAndContractsAreThoseOfTheHost)
{
    const QMetaObject *meta = list.metaObject();
    QStringList signalNames;
    for (int at = RecordList::staticMetaObject.methodOffset(); at < meta->methodCount(); ++at)
        if (meta->method(at).methodType() == QMetaMethod::Signal)
            signalNames.append(QString::fromLatin1(meta->method(at).name()));
    EXPECT_EQ(signalNames.join(u' '),
              u"Message ErrMessage FormRefreshed Property VsMouseDown RefreshGetGridStatus UnLoad"_qs);
    QObject *object = &list;
    EXPECT_TRUE(qobject_cast<IReportUI *>(object) && qobject_cast<IDesignUI *>(object));
    EXPECT_EQ(qobject_cast<IFormUI *>(object), nullptr);
    EXPECT_EQ(list.IReportUI_oTable(), &list.VS());
    EXPECT_EQ(list.IReportUI_Attributes(99), u"nomenu"_qs);
    for (const QVariant &other : {QVariant(98), QVariant(), QVariant(u"menu"_qs)})
        EXPECT_EQ(list.IReportUI_Attributes(other).toString(), QString());
    QString items;
    for (const NavToolbar::Item &item : list.NavToolbar1().items()) {
        if (item.visible)
            items += item.key.isEmpty() ? u"|"_qs : item.key + u' ';
    }
    EXPECT_EQ(items, u"all buy rent |new edit delete |gj |refresh |close "_qs);
    QString seen;
    QObject::connect(&list, &Fcxx::VsMouseDown, [&](short &button, short &shift, float &x, float &y) {
        seen = u"%1 %2 %3 %4"_qs.arg(button).arg(shift).arg(x).arg(y);
    });
    list.VS().reportMouseDown(1, 2, 3, 4);
    EXPECT_EQ(seen, u"1 2 3 4"_qs);
}

TEST_F(FcxxTest, RefusedRightsAndADatabaseThatCannotBeWrittenDisableButtons)
{
    const std::pair<QString, int> commands[] = {
        {u"new"_qs, RightNew}, {u"edit"_qs, RightEdit}, {u"delete"_qs, RightDelete}};
    for (const auto &[refused, right] : commands) {
        setRight(right, false);
        init();
        for (const QString &key : {u"new"_qs, u"edit"_qs, u"delete"_qs, u"gj"_qs})
            EXPECT_EQ(list.NavToolbar1().isEnabled(key), key != refused) << key.toStdString();
        setRight(right, true);
    }
    list.IReportUI_Init(sealedHost(), host::ListingModule);
    for (const QString &key : {u"new"_qs, u"edit"_qs, u"delete"_qs, u"gj"_qs})
        EXPECT_FALSE(list.NavToolbar1().isEnabled(key)) << key.toStdString();
}

TEST_F(FcxxTest, RefreshLoadsInOneStatementAndTellsInOrder)
{
    init();
    store(u"FY3 FY2 FY1 FY0"_qs);
    EXPECT_TRUE(refresh());
    EXPECT_EQ(events, QStringList({u"layout, 4 rows"_qs, u"共加载4条记录"_qs}));
    EXPECT_EQ(app.statements.size(), 2) << "the list, and the pictures of its first row";
    EXPECT_EQ(app.releases, 2);
    EXPECT_EQ(shown(), u"FY3 FY2 FY1 FY0");
    QString icons;
    for (int row = 1; row < list.VS().Rows(); ++row)
        icons += list.VS().CellPicture(row, 0) == u"mail-attachment" ? u'x' : u'-';
    EXPECT_EQ(icons, u"x--x"_qs);
    EXPECT_EQ(list.VS().Row(), 1);
    EXPECT_TRUE(list.VS().Redraw());
    EXPECT_EQ(desktop.waits(), 1);

    store({});
    EXPECT_TRUE(refresh());
    EXPECT_EQ(events, QStringList({u"layout, 0 rows"_qs, u"共加载0条记录"_qs}));
    EXPECT_EQ(cell(list.VS().Row(), ListingKey), u"房源ID"_qs) << "an empty list stands on its header";
}

TEST_F(FcxxTest, FailuresNameModuleAndOperationAndLeaveAListThatWorks)
{
    EXPECT_FALSE(refresh());
    EXPECT_EQ(events, QStringList(u"Fcxx-->IRptUI_Refresh::模块尚未初始化！|8|EBTQ_S"_qs));
    store(u"FY1"_qs);
    open(host::ListingModule);
    int rowsWhenAsked = -1;
    app.asRun = [&](const SqlText &) {
        rowsWhenAsked = list.VS().Rows();
        return SqlText(u"select 1 as 号 from 断开"_qs);
    };
    EXPECT_FALSE(refresh());
    EXPECT_EQ(rowsWhenAsked, 1) << "emptied before the database is asked";
    EXPECT_EQ(events, QStringList(app.Db().LastError().Description + u"|8|EBTQ_S"_qs));
    EXPECT_EQ(app.releases, 1);
    EXPECT_TRUE(list.VS().Redraw());
    app.asRun = [](const SqlText &sql) { return sql; };
    const auto failing = QObject::connect(&list.VS(), &VSFlexGrid::rowsReset, [this] {
        if (list.VS().Rows() > 1)
            throw Failure(u"无法绘制"_qs);
    });
    EXPECT_FALSE(refresh());
    EXPECT_EQ(events.last(), u"Fcxx-->IRptUI_Refresh::无法绘制|8|EBTQ_S"_qs);
    EXPECT_EQ(app.releases, 2);
    EXPECT_TRUE(list.VS().Redraw());
    QObject::disconnect(failing);
    EXPECT_TRUE(refresh());

    EXPECT_TRUE(list.IReportUI_Clear());
    EXPECT_EQ(list.VS().Rows(), 0);
    app.releases = 0;
    list.VS().reportFocus();
    list.SearchBox1().searchNow();
    EXPECT_EQ(app.releases, 0) << "a module that has ended does nothing";
    connection->executeNative("drop table host_parameters");
    EXPECT_FALSE(list.IReportUI_Init(app, host::ListingModule));
    EXPECT_TRUE(events.last().startsWith(u"Fcxx-->IRptUI_Init::初始化过程发生错误，原因:") &&
                events.last().endsWith(u"|8|EBTQ_S"))
        << events.last().toStdString();
    edit(u"new"_qs, [] {});
    edit(u"gj"_qs, [] {});
}

TEST_F(FcxxTest, CommandsSetTheFilterAndReload)
{
    init();
    const std::tuple<QString, int, int, QString> cases[] = {
        {u"buy"_qs, 1, 0, u" where 交易方式 like '%售%' and 操作日期>#2026-11-22# order"_qs},
        {u"rent"_qs, 0, 1, u" where 交易方式 like '%租%' and 操作日期>#2026-11-22# order"_qs},
        {u"all"_qs, 0, 0, u" where 操作日期>#2026-11-22# order"_qs}};
    list.XPCmb().setText(u"三天内"_qs);
    for (const auto &[key, forSale, forRent, clause] : cases) {
        SCOPED_TRACE(key.toStdString());
        list.Chk(0).setValue(1 - forSale);
        list.Chk(1).setValue(1 - forRent);
        for (const int number : {District, Rooms, State, Department, Agent, Building}) {
            list.qzTxt(number).setText(u"x"_qs);
            list.qzTxt(number).setValue(7);
        }
        app.statements.clear();
        press(key);
        EXPECT_TRUE(list.Chk(0).Value() == forSale && list.Chk(1).Value() == forRent);
        for (const int number : {District, Rooms, State, Department, Agent, Building}) {
            EXPECT_EQ(list.qzTxt(number).Text(), QString()) << number;
            EXPECT_EQ(list.qzTxt(number).Value().isValid(),
                      number == Rooms || number == State || number == Building)
                << number;
        }
        EXPECT_TRUE(listStatement().contains(clause)) << listStatement().toStdString();
    }
    list.qzTxt(State).setText(u"有效"_qs);
    app.statements.clear();
    press(u"refresh"_qs);
    EXPECT_TRUE(listStatement().contains(u" where 交易状态='有效' and 操作日期>#2026-11-22# order"));
    events.clear();
    press(u"close"_qs);
    press(u"delete"_qs);
    EXPECT_EQ(events, QStringList(u"unload true"_qs));
}

TEST_F(FcxxTest, WheelTurnsRowsAtTheUsersRate)
{
    constexpr int most = std::numeric_limits<int>::max();
    // The wheel's end for 22 rows with the header, its value with row 12 on top, the top row at its value 4.
    const std::tuple<QString, int, int, int> cases[] = {
        {u""_qs, 4, 2, 15},     {u"0"_qs, 4, 2, 15},   {u"三"_qs, 4, 2, 15},         {u"3"_qs, 7, 4, 9},
        {u"2.5行"_qs, 8, 4, 7}, {u"100"_qs, 0, 0, 21}, {u"1e-300"_qs, most, most, 1}};
    QStringList numbers;
    for (int row = 0; row < 21; ++row)
        numbers.append(u"FY%1"_qs.arg(row));
    store(numbers.join(u' '));
    for (const auto &[rate, end, value, top] : cases) {
        SCOPED_TRACE(rate.toStdString());
        host::setParameter(*connection, {}, 12, u"MouseEventScrollRate"_qs, rate);
        open(host::ListingModule);
        MouseWheel &wheel = *list.mcMouseEvent();
        EXPECT_EQ(wheel.Max(), end);
        EXPECT_EQ(wheel.Min(), 1);
        EXPECT_EQ(wheel.grid(), nullptr);
        list.VS().reportFocus();
        EXPECT_EQ(wheel.grid(), &list.VS());
        list.VS().setTopRow(12);
        list.VS().setRow(list.VS().Row() == 5 ? 6 : 5);
        EXPECT_EQ(wheel.Value(), value);
        list.VS().setTopRow(1);
        list.VS().setTopRow(12);
        EXPECT_EQ(wheel.Value(), value) << "scrolling sets it too";
        wheel.setMax(4);
        wheel.setValue(4);
        wheel.turn(0);
        EXPECT_EQ(list.VS().TopRow(), top);
        EXPECT_EQ(wheel.Value(), 4) << "its own turn does not set it back";
    }
}

TEST_F(FcxxTest, ARefreshReturnsToTheListing)
{
    QString numbers;
    for (int number = 99; number > 0; --number)
        numbers += u"FY%1 "_qs.arg(number, 2, 10, QChar(u'0'));
    VSFlexGrid &grid = list.VS();
    const auto refreshed = [&] {
        EXPECT_TRUE(refresh());
        return u"%1 from %2"_qs.arg(grid.TextMatrix(grid.Row(), ListingNumber)).arg(grid.TopRow());
    };
    init();
    store(numbers);
    EXPECT_EQ(refreshed(), u"FY99 from 1"_qs);
    grid.setRow(3);
    store(u"NEW "_qs + numbers);
    EXPECT_EQ(refreshed(), u"FY97 from 1"_qs) << "a new listing is seen at the top";

    grid.setTopRow(40);
    grid.setRow(45);
    app.asRun = [](const SqlText &) { return SqlText(u"select 1 as 号 from 断开"_qs); };
    EXPECT_FALSE(refresh());
    app.asRun = [](const SqlText &sql) { return sql; };
    store(numbers);
    EXPECT_EQ(refreshed(), u"FY56 from 39"_qs) << "a failure does not lose the place";

    list.SearchBox1().setText(u"FY70"_qs);
    EXPECT_TRUE(refreshed().startsWith(u"FY70")) << "the search has the last word";
    list.SearchBox1().setText({});
    store(numbers.remove(u"FY70 "_qs));
    EXPECT_EQ(refreshed(), u"FY99 from 1"_qs) << "gone";
    EXPECT_TRUE(list.IReportUI_Clear());
    init();
    store(u"NEW "_qs + numbers);
    EXPECT_EQ(refreshed(), u"NEW from 1"_qs) << "another start knows no place";
}

TEST_F(FcxxTest, ListsAreTheHosts)
{
    init();
    // The caption, the row to choose, what may be typed for it, value and text. Of a house type the numbers
    // are its name.
    const std::tuple<int, QString, QString, QString, QString> cases[] = {
        {Rooms, u"房型"_qs, u"F1"_qs, u"f1 3-2-2-1"_qs, u"F1|3-2-2-1"_qs},
        {State, u"状态"_qs, u"01"_qs, u"01 有效"_qs, u"01|有效"_qs},
        {Department, u"部门"_qs, u"01"_qs, u"01 营业一部"_qs, u"1|营业一部"_qs},
    };
    for (const auto &[number, caption, row, typed, found] : cases) {
        qzTxt_S &field = list.qzTxt(number);
        EXPECT_EQ(field.Caption(), caption);
        EXPECT_TRUE(field.help_menuflag());
        EXPECT_EQ(field.error_message(), caption + u"输入有误，请重新输入！"_qs);
        panels.willChoose(row);
        field.requestHelp(5, 6);
        EXPECT_EQ(field.Value().toString() + u'|' + field.Text(), found);
        for (const QString &text : typed.split(u' ')) {
            field.type(text);
            EXPECT_TRUE(field.check());
            EXPECT_EQ(field.Value().toString() + u'|' + field.Text(), found) << text.toStdString();
        }
        field.type(u"乱"_qs);
        EXPECT_FALSE(field.check());
    }
    EXPECT_THROW((void)list.qzTxt(2), Failure);
    EXPECT_THROW((void)list.Chk(2), Failure);
}

TEST_F(FcxxTest, PickersAreAskedWithTheirParameters)
{
    init();
    const std::tuple<int, QString, QString, QString, QString> cases[] = {
        {District, u"城区"_qs, u"pdmdq"_qs, u"天河区"_qs, u" pdmsfmx=1"_qs},
        {Agent, u"经纪人"_qs, u"pdmgy"_qs, u"天河区"_qs, u" 组织类型=1"_qs},
        {Building, u"楼盘"_qs, u"selpdmlpzd"_qs, u"天河区"_qs, u" lock=1 地区=天河区"_qs},
        {Building, u"楼盘"_qs, u"selpdmlpzd"_qs, {}, {}}, // the lock of the case above is gone
    };
    for (const auto &[number, caption, picker, district, parameters] : cases) {
        qzTxt_S &field = list.qzTxt(number);
        EXPECT_EQ(field.error_message(), caption + u"输入有误，请重新输入！"_qs);
        type(District, district);
        field.setText(u"旧"_qs);
        script = {};
        field.requestHelp(30, 40);
        EXPECT_EQ(field.Text() + script.textBefore, u"旧旧"_qs) << "left without a choice it changes nothing";
        script = {{}, u"新"_qs, 17, nullptr};
        field.requestHelp(30, 40);
        EXPECT_EQ(script.asked, QStringList(u"show %1 30 40"_qs.arg(picker) + parameters));
        EXPECT_EQ(field.Text() + field.Value().toString(), u"新17"_qs);
        type(District, number == District ? QString() : district);
        field.type(u"旧"_qs);
        EXPECT_TRUE(field.check());
        EXPECT_EQ(script.asked.last(), u"validate %1 旧"_qs.arg(picker) + parameters);
        EXPECT_EQ(field.Text(), u"新"_qs);
        script.ready = false;
        field.type(u"别的"_qs);
        field.requestHelp(1, 1);
        EXPECT_FALSE(field.check());
        EXPECT_EQ(script.asked.size(), 2);
    }
    EXPECT_EQ(events, QStringList());
}

TEST_F(FcxxTest, LookUpsReleaseTheDatabaseAndTrapFailures)
{
    init();
    const auto lookUp = [this] {
        list.qzTxt(District).requestHelp(0, 0);
        list.qzTxt(State).requestHelp(0, 0);
        list.qzTxt(State).type(u"x"_qs);
        EXPECT_FALSE(list.qzTxt(State).check());
    };
    app.releases = 0;
    panels.willChoose({});
    lookUp();
    EXPECT_EQ(app.releases, 3);
    list.IReportUI_Clear();
    events.clear();
    lookUp();
    EXPECT_EQ(events, QStringList({u"Fcxx-->qzTxt_FieldHelp::模块尚未初始化！|8|EBTQ_S"_qs,
                                   u"Fcxx-->qzTxt_FieldGenericHelp::模块尚未初始化！|8|EBTQ_S"_qs,
                                   u"Fcxx-->qzTxt_FieldCheck::模块尚未初始化！|8|EBTQ_S"_qs}));
}

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

TEST_F(FcxxSearchTest, WithTheFilterOtherRowsAreHiddenAlsoAfterARefresh)
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
    searchFor(u"海珠"_qs);
    EXPECT_EQ(shown(), u"fy13 FY11") << "searched anew in all rows";
    store(u"FY22 FY21 FY20 FY19"_qs);
    EXPECT_TRUE(refresh());
    EXPECT_EQ(shown(), u"FY21 FY19");
    EXPECT_EQ(events.last(), u"共加载4条记录") << "hidden rows count";
    list.ChkFind().setValue(0);
    EXPECT_FALSE(list.SearchBox1().FilterFlag());
    EXPECT_EQ(list.VS().visibleCount(), 4);
    EXPECT_EQ(list.VS().Row(), 2) << "the tick searches again with the present text";
    searchFor(u"FY20"_qs);
    EXPECT_TRUE(refresh());
    EXPECT_EQ(list.VS().Row(), 3);
    list.ChkFind().setValue(1);
    list.SearchBox1().setText({});
    EXPECT_EQ(list.VS().visibleCount(), 4);
}

} // namespace
