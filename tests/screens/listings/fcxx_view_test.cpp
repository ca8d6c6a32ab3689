#include "screens/listings/fcxx_view.h"

#include "database/connection.h"
#include "host/application.h"
#include "host/demo/demo.h"
#include "host/setup.h"
#include "library/listings/fcxx.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/support/screen.h"
#include "support/scripted_desktop.h"

#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <deque>

using namespace ebtq;
using namespace ebtq::test;

namespace {

constexpr int moduleId = 101;
constexpr int listings = 120;
const QDate today(2026, 11, 22);

/// Answers each panel with the first row that can be chosen, and keeps where it was asked to open.
class FirstRow : public host::PanelPresenter
{
public:
    std::optional<qsizetype> choose(const host::Panel &panel) override
    {
        places.append(QPoint(panel.left, panel.top));
        for (qsizetype row = 0; row < panel.rows.rowCount(); ++row) {
            if (panel.choosableColumn < 0 || panel.rows.cell(row, panel.choosableColumn) == "1")
                return row;
        }
        return std::nullopt;
    }
    std::optional<QDate> chooseDate(const QDate &, int, int) override { return std::nullopt; }

    QList<QPoint> places;
};

/// The list of listings on the screen, over the invented agency in memory.
class FcxxViewTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_connection = db::Connection::open(QStringLiteral(":memory:"), db::Connection::Missing::IsCreated);
        host::prepareDatabase(*s_connection);
        host::DemoOptions options;
        options.listings = listings;
        options.customers = 10;
        options.followUps = 10;
        options.today = today;
        host::writeDemo(*s_connection, options);
    }
    static void TearDownTestSuite() { s_connection.reset(); }

    FcxxViewTest()
    {
        desktop.setNow(QDateTime(today, QTime(9, 0)));
        QObject::connect(&module, &Fcxx::Message, [this](const QString &text) { message = text; });
        QObject::connect(&module, &Fcxx::ErrMessage,
                         [this](const QString &text, int, const QString &) { errors.append(text); });
        EXPECT_TRUE(module.IReportUI_Init(app, moduleId));
        view = std::make_unique<FcxxView>(module, nullptr);
        view->resize(1112, 600);
        showActive(*view);
        EXPECT_TRUE(module.IReportUI_Refresh());
        message.clear();
    }

    template<class T> T &child(const QString &name) const
    {
        T *widget = view->findChild<T *>(name);
        if (!widget)
            throw std::runtime_error("no widget " + name.toStdString());
        return *widget;
    }
    [[nodiscard]] QLineEdit &field(int number) const
    {
        return child<QLineEdit>(QStringLiteral("qzTxt_%1").arg(number));
    }
    [[nodiscard]] QToolButton &button(const QString &key) const
    {
        return child<QToolButton>(QStringLiteral("NavToolbar1_") + key);
    }
    void typeInto(int number, const QString &text) const
    {
        field(number).setFocus();
        typeText(field(number), text);
    }
    static void click(QWidget &widget) { QTest::mouseClick(&widget, Qt::LeftButton); }
    [[nodiscard]] QStringList shown(int column) const
    {
        QStringList texts;
        const QAbstractItemModel &model = *child<FlexGridView>(QStringLiteral("VS")).model();
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, column).data().toString());
        return texts;
    }
    [[nodiscard]] static QString loaded(qsizetype rows) { return QStringLiteral("共加载%1条记录").arg(rows); }

    static inline std::unique_ptr<db::Connection> s_connection;
    QTemporaryDir folder;
    FirstRow panels;
    host::Application app{*s_connection,
                          host::signIn(*s_connection, QStringLiteral("演示"), QStringLiteral("demo")),
                          {folder.path(), today},
                          panels};
    ScriptedDesktop desktop;
    Fcxx module{desktop};
    std::unique_ptr<FcxxView> view;
    QString message;
    QStringList errors;
};

TEST_F(FcxxViewTest, EnterInAFilterFieldLoadsWhatItSays)
{
    const QString district = shown(4).constFirst();
    typeInto(0, district);
    EXPECT_EQ(message, QString()) << "nothing is loaded while the user types";
    QTest::keyClick(&field(0), Qt::Key_Return);
    const QStringList districts = shown(4);
    ASSERT_FALSE(districts.isEmpty());
    EXPECT_LT(districts.size(), listings);
    EXPECT_EQ(districts.count(district), districts.size());
    EXPECT_EQ(message, loaded(districts.size()));
    EXPECT_EQ(focusName(), QStringLiteral("qzTxt_0"));
}

TEST_F(FcxxViewTest, AChoiceFromHelpOpensAtTheFieldAndLoads)
{
    QTest::keyClick(&field(3), Qt::Key_F4);
    EXPECT_EQ(panels.places, QList<QPoint>({field(3).mapToGlobal(QPoint(0, field(3).height()))}));
    const QString state = field(3).text();
    ASSERT_FALSE(state.isEmpty());
    EXPECT_EQ(message, loaded(shown(3).size()));
    EXPECT_EQ(shown(3).count(state), shown(3).size());
}

TEST_F(FcxxViewTest, TicksAndButtonsShowTheSameKind)
{
    struct Case
    {
        const char *what;
        std::function<void()> act;
        QString pressed; ///< of the three kinds
        QString kind;    ///< what each row's 交易 holds
    };
    QWidget &forSale = child<QCheckBox>(QStringLiteral("Chk_0"));
    QWidget &forRent = child<QCheckBox>(QStringLiteral("Chk_1"));
    const Case cases[] = {
        {"tick sale", [&] { QTest::keyClick(&forSale, Qt::Key_Space); }, QStringLiteral("buy"),
         QStringLiteral("售")},
        {"tick rent too", [&] { QTest::keyClick(&forRent, Qt::Key_Space); }, QString(), QString()},
        {"rent", [&] { click(button(QStringLiteral("rent"))); }, QStringLiteral("rent"),
         QStringLiteral("租")},
        {"buy", [&] { click(button(QStringLiteral("buy"))); }, QStringLiteral("buy"), QStringLiteral("售")},
        {"all", [&] { click(button(QStringLiteral("all"))); }, QStringLiteral("all"), QString()},
    };
    for (const Case &expected : cases) {
        SCOPED_TRACE(expected.what);
        message.clear();
        expected.act();
        const QStringList kinds = shown(2);
        EXPECT_EQ(message, loaded(kinds.size())) << "loaded once, with this filter";
        EXPECT_EQ(kinds.filter(expected.kind).size(), kinds.size());
        EXPECT_EQ(kinds.size() == listings, expected.kind.isEmpty());
        for (const QString &key : {QStringLiteral("all"), QStringLiteral("buy"), QStringLiteral("rent")})
            EXPECT_EQ(button(key).isChecked(), key == expected.pressed) << key.toStdString();
    }
}

TEST_F(FcxxViewTest, ADateWindowLoadsWhenItIsChosen)
{
    auto &window = child<QComboBox>(QStringLiteral("XPCmb"));
    window.setFocus();
    QTest::keyClick(&window, Qt::Key_Down);
    EXPECT_EQ(message, QString()) << "not at every step";
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_EQ(module.XPCmb().Text(), QStringLiteral("三天内"));
    EXPECT_EQ(message, loaded(shown(1).size()));
    EXPECT_LT(shown(1).size(), listings);
}

TEST_F(FcxxViewTest, AWrongTextHoldsRefreshBackButNotTheWayOut)
{
    typeInto(4, QStringLiteral("没有的部门"));
    click(button(QStringLiteral("refresh")));
    EXPECT_EQ(message, QString());
    const auto *bubble = view->window()->findChild<QLabel *>(QStringLiteral("FieldError"));
    ASSERT_TRUE(bubble);
    EXPECT_EQ(bubble->text(), QStringLiteral("部门输入有误，请重新输入！"));
    click(button(QStringLiteral("all")));
    EXPECT_EQ(field(4).text(), QString());
    EXPECT_EQ(message, loaded(listings));
    EXPECT_FALSE(view->window()->findChild<QLabel *>(QStringLiteral("FieldError")));
}

TEST_F(FcxxViewTest, F5LoadsByWhatIsTypedAndNotByTheValueBefore)
{
    int programsKey = 0;
    QObject::connect(new QShortcut(Qt::Key_F5, view.get()), &QShortcut::activated, [&] { ++programsKey; });
    const QStringList all = shown(17);
    const QString department = all.constFirst();
    const auto isOther = [&](const QString &text) { return !text.isEmpty() && text != department; };
    const QString other = *std::find_if(all.begin(), all.end(), isOther);
    for (const QString &wanted : {department, other}) {
        field(4).setFocus();
        field(4).selectAll();
        typeText(field(4), wanted);
        QTest::keyClick(&field(4), Qt::Key_F5);
        const QStringList departments = shown(17);
        ASSERT_FALSE(departments.isEmpty());
        EXPECT_EQ(departments.count(wanted), departments.size()) << wanted.toStdString();
    }
    message.clear();
    typeText(field(4), QStringLiteral("x"));
    QTest::keyClick(&field(4), Qt::Key_F5);
    EXPECT_EQ(message, QString()) << "a refused text is loaded by nothing";
    EXPECT_EQ(programsKey, 0);
}

TEST_F(FcxxViewTest, AFieldThatACommandEmptiedTakesTheSameTextAgain)
{
    const QString department = shown(17).constFirst();
    qsizetype found = 0;
    for (int time = 0; time < 2; ++time) {
        typeInto(4, department);
        QTest::keyClick(&field(4), Qt::Key_Return);
        EXPECT_GT(shown(17).size(), 0);
        EXPECT_TRUE(time == 0 || shown(17).size() == found);
        found = shown(17).size();
        click(button(QStringLiteral("all")));
    }
}

TEST_F(FcxxViewTest, SearchMovesAndFiltersWithinTheLoadedRows)
{
    constexpr int behindTheFirstPage = 100;
    const QString number = shown(1).at(behindTheFirstPage);
    QTest::keyClick(view.get(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(focusName(), QStringLiteral("SearchBox1"));
    auto &box = child<QLineEdit>(QStringLiteral("SearchBox1"));
    typeText(box, number);
    QTest::keyClick(&box, Qt::Key_Return);
    const auto &grid = child<FlexGridView>(QStringLiteral("VS"));
    EXPECT_EQ(grid.currentIndex().row(), behindTheFirstPage);
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.visualRect(grid.currentIndex().siblingAtColumn(1))));
    QTest::keyClick(&child<QCheckBox>(QStringLiteral("ChkFind")), Qt::Key_Space);
    EXPECT_EQ(shown(1), QStringList(number));
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_EQ(shown(1).size(), listings);
    EXPECT_EQ(message, QString()) << "the database is not asked";
}

TEST_F(FcxxViewTest, ARefreshKeepsTheListingWhereItStands)
{
    const auto &grid = child<FlexGridView>(QStringLiteral("VS"));
    module.VS().setRow(80);
    const int top = grid.verticalScrollBar()->value();
    ASSERT_GT(top, 0);
    const QString number = shown(1).at(79);
    click(button(QStringLiteral("refresh")));
    EXPECT_EQ(message, loaded(listings));
    EXPECT_EQ(grid.currentIndex().siblingAtColumn(1).data().toString(), number);
    EXPECT_EQ(grid.verticalScrollBar()->value(), top);
}

TEST_F(FcxxViewTest, TheWheelGoesOnFromWhereTheListWasScrolledTo)
{
    auto &grid = child<FlexGridView>(QStringLiteral("VS"));
    grid.setFocus();
    grid.verticalScrollBar()->setValue(59);
    MouseWheel &wheel = *module.mcMouseEvent();
    EXPECT_EQ(wheel.Value(), 20) << "row 60 at three rows a turn";
    wheel.turn(-1);
    EXPECT_EQ(module.VS().TopRow(), 54);
    EXPECT_EQ(grid.verticalScrollBar()->value(), 53);
    wheel.turn(-1);
    EXPECT_EQ(module.VS().TopRow(), 51);
}

TEST_F(FcxxViewTest, TellsAnEmptyListFromAFailedOne)
{
    auto &grid = child<FlexGridView>(QStringLiteral("VS"));
    const auto hint = [&] { return grid.viewport()->grab().toImage(); };
    typeInto(0, QStringLiteral("没有的城区'"));
    module.NavToolbar1().press(QStringLiteral("refresh"));
    ASSERT_EQ(errors.size(), 1);
    EXPECT_EQ(shown(1).size(), 0);
    EXPECT_EQ(field(0).text(), QStringLiteral("没有的城区'")) << "nothing typed is lost";
    const QImage afterFailure = hint();
    module.qzTxt(0).setText(QStringLiteral("没有的城区"));
    EXPECT_TRUE(module.IReportUI_Refresh());
    EXPECT_EQ(shown(1).size(), 0);
    EXPECT_NE(hint(), afterFailure);
}

TEST_F(FcxxViewTest, TabGoesThroughTheFiltersInReadingOrder)
{
    const QStringList order = {
        QStringLiteral("qzTxt_0"),    QStringLiteral("qzTxt_7"), QStringLiteral("qzTxt_1"),
        QStringLiteral("qzTxt_3"),    QStringLiteral("qzTxt_4"), QStringLiteral("qzTxt_5"),
        QStringLiteral("XPCmb"),      QStringLiteral("Chk_0"),   QStringLiteral("Chk_1"),
        QStringLiteral("SearchBox1"), QStringLiteral("ChkFind"), QStringLiteral("VS")};
    field(0).setFocus();
    QStringList walked;
    for (qsizetype step = 0; step < order.size(); ++step) {
        QWidget *focused = QApplication::focusWidget();
        walked.append(focused->objectName().isEmpty() ? focused->parentWidget()->objectName()
                                                      : focused->objectName());
        QTest::keyClick(focused, Qt::Key_Tab);
    }
    EXPECT_EQ(walked, order);
}

TEST_F(FcxxViewTest, LettersTickTheBoxes)
{
    const std::pair<Qt::Key, CheckBox *> letters[] = {
        {Qt::Key_S, &module.Chk(0)}, {Qt::Key_Z, &module.Chk(1)}, {Qt::Key_I, &module.ChkFind()}};
    for (const auto &[letter, box] : letters) {
        QTest::keyClick(view.get(), letter, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return box->Value() == 1; })) << box->Caption().toStdString();
    }
}

TEST_F(FcxxViewTest, HiddenCommandsHaveNoButtonOnTheScreen)
{
    for (const NavToolbar::Item &item : module.NavToolbar1().items()) {
        const bool isShown = !item.key.isEmpty() && button(item.key).isVisible();
        EXPECT_EQ(isShown, item.visible && !item.key.isEmpty()) << item.key.toStdString();
    }
}

/// Leaves of the widget tree that stand on the screen.
QList<QWidget *> shownLeaves(const QWidget &root)
{
    QList<QWidget *> leaves;
    for (QWidget *widget : root.findChildren<QWidget *>()) {
        const bool isLeaf = qobject_cast<QLabel *>(widget) || qobject_cast<QLineEdit *>(widget) ||
                            qobject_cast<QAbstractButton *>(widget) || qobject_cast<QComboBox *>(widget);
        const bool isPart = qobject_cast<QLineEdit *>(widget->parentWidget()) ||
                            qobject_cast<QComboBox *>(widget->parentWidget()) ||
                            qobject_cast<QAbstractItemView *>(widget->parentWidget());
        if (isLeaf && !isPart && widget->isVisible())
            leaves.append(widget);
    }
    return leaves;
}

TEST_F(FcxxViewTest, NothingIsCutOrOverlapsAtAnySize)
{
    const std::pair<QSize, int> sights[] = {{QSize(1112, 560), 1}, {QSize(1112, 560), 2},
                                            {QSize(900, 560), 3},  {QSize(1376, 800), 4},
                                            {QSize(1376, 800), 5}, {QSize(3670, 2000), 1}};
    for (const auto &[size, tab] : sights) {
        SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height() << ", tab " << tab);
        module.detail().qzVSTabCtl1().setActiveTab(tab);
        view->resize(size);
        QCoreApplication::processEvents();
        const QList<QWidget *> leaves = shownLeaves(*view);
        ASSERT_GT(leaves.size(), 20);
        for (const QWidget *leaf : leaves) {
            const QRect place(leaf->mapTo(view.get(), QPoint()), leaf->size());
            const std::string name = (leaf->objectName() + u' ' + leaf->accessibleName()).toStdString();
            EXPECT_TRUE(view->rect().contains(place)) << name;
            EXPECT_GE(place.height(), leaf->minimumSizeHint().height()) << name;
            EXPECT_TRUE(qobject_cast<const QLineEdit *>(leaf) ||
                        place.width() >= leaf->minimumSizeHint().width())
                << name;
            for (const QWidget *other : leaves) {
                const QRect otherPlace(other->mapTo(view.get(), QPoint()), other->size());
                EXPECT_TRUE(leaf == other || !place.intersects(otherPlace)) << name;
            }
        }
        EXPECT_GT(child<FlexGridView>(QStringLiteral("VS")).height(), size.height() * 2 / 5);
        EXPECT_FALSE(child<FlexGridView>(QStringLiteral("VS")).horizontalScrollBar()->isVisible() &&
                     size.width() > 1100);
    }
}

TEST_F(FcxxViewTest, CtrlPPrintsAndWhatTheMenuDoesIsReportedAsTheListDoes)
{
    auto &grid = child<FlexGridView>(QStringLiteral("VS"));
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors[0].contains(QStringLiteral("没有打印功能")));
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(message, QStringLiteral("已复制1行"));
    desktop.willChooseFile(QStringLiteral("/dev/null/list.csv"));
    QContextMenuEvent request(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&grid, &request);
    for (QAction *action : grid.findChild<QMenu *>(QStringLiteral("GridMenu"))->actions()) {
        if (action->text().startsWith(QStringLiteral("导出 CSV")))
            action->trigger();
    }
    QApplication::activePopupWidget()->close();
    ASSERT_EQ(errors.size(), 2);
    EXPECT_TRUE(errors[1].startsWith(QStringLiteral("无法写入文件")));
    EXPECT_TRUE(desktop.asked().last().contains(QStringLiteral("房源信息列表 2026-11-22.csv")));
}

TEST_F(FcxxViewTest, SurvivesTheEndOfItsModulesWork)
{
    EXPECT_TRUE(module.IReportUI_Clear());
    EXPECT_EQ(shown(1).size(), 0);
    auto &grid = child<FlexGridView>(QStringLiteral("VS"));
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Down);
    click(button(QStringLiteral("refresh")));
    EXPECT_EQ(errors.size(), 1) << "a call out of order ends in a message";
}

} // namespace
