#include "shell/tour/tour_steps.h"

#include "screens/look/look.h"
#include "shell/message_bar.h"
#include "shell/tour/action_steps.h"
#include "shell/tour/customer_steps.h"
#include "shell/tour/detail_steps.h"
#include "shell/tour/detail_walk.h"
#include "shell/tour/dictionary_steps.h"
#include "shell/tour/editor_steps.h"
#include "shell/tour/follow_up_steps.h"
#include "shell/tour/layout_steps.h"
#include "shell/tour/picker_steps.h"
#include "shell/tour/print_steps.h"
#include "shell/tour/session_steps.h"
#include "shell/tour/start_steps.h"
#include "shell/tour/tour.h"

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

#include <algorithm>

namespace ebtq::shell {

namespace {

constexpr int firstNumbersNoted = 3;

// What is on the screen

QAbstractItemModel &list(Tour &tour)
{
    return *tour.person().see<QTableView>(QStringLiteral("VS")).model();
}

QString statusText(Tour &tour)
{
    return tour.person().see<QLabel>(QStringLiteral("StatusMessage")).text();
}

QString fieldText(Tour &tour, const QString &name)
{
    return tour.person().see<QLineEdit>(name).text();
}

QStringList messages(Tour &tour)
{
    return tour.person().window().findChild<MessageBar *>()->shownTexts();
}

/// The cells of the column with that caption, from the top.
QStringList column(Tour &tour, QStringView caption)
{
    const QAbstractItemModel &model = list(tour);
    for (int number = 0; number < model.columnCount(); ++number) {
        if (model.headerData(number, Qt::Horizontal).toString().trimmed() != caption)
            continue;
        QStringList cells;
        for (int row = 0; row < model.rowCount(); ++row)
            cells.append(model.index(row, number).data().toString());
        return cells;
    }
    Tour::expect(false, QStringLiteral("列表没有“%1”一列").arg(caption));
    return {};
}

bool rowShows(const QAbstractItemModel &model, int row, const QString &text)
{
    for (int number = 0; number < model.columnCount(); ++number)
        if (model.index(row, number).data().toString().contains(text))
            return true;
    return false;
}

void noteList(Tour &tour)
{
    tour.note(QStringLiteral("  行数：%1；状态：%2").arg(list(tour).rowCount()).arg(statusText(tour)));
    tour.note(QStringLiteral("  房源编号：%1")
                  .arg(column(tour, u"房源编号").mid(0, firstNumbersNoted).join(QStringLiteral("、"))));
}

// What must be seen

qsizetype listingsInDatabase(Tour &tour, const SqlText &condition = {})
{
    return tour.connection()
        .query(SqlText(QStringLiteral("select 房源ID from fyxx A")) + condition)
        .rowCount();
}

/// The district with the most listings.
QString largestDistrict(Tour &tour)
{
    const RowBlock rows =
        tour.connection().query(SqlText(QStringLiteral("select 地区 from fyxx where 地区<>''")));
    QHash<QString, int> counts;
    for (qsizetype row = 0; row < rows.rowCount(); ++row)
        ++counts[rows.value(row, 0).toString()];
    const auto largest = std::max_element(counts.cbegin(), counts.cend());
    Tour::expect(largest != counts.cend(), QStringLiteral("数据库中没有带城区的房源"));
    return largest.key();
}

void expectRows(Tour &tour, qsizetype rows)
{
    noteList(tour);
    const int seen = list(tour).rowCount();
    Tour::expect(seen == rows, QStringLiteral("列表有 %1 行，应为 %2 行").arg(seen).arg(rows));
    const QString status = QStringLiteral("共加载%1条记录").arg(rows);
    Tour::expect(statusText(tour) == status, QStringLiteral("状态应为“%1”").arg(status));
}

void expectEveryCell(Tour &tour, QStringView caption, const QString &part)
{
    const QStringList cells = column(tour, caption);
    const bool all = std::ranges::all_of(cells, [&](const QString &cell) { return cell.contains(part); });
    Tour::expect(all, QStringLiteral("“%1”一列每行都应有“%2”").arg(caption, part));
}

void expectKind(Tour &tour, const QString &kind, const QString &box)
{
    expectRows(tour, listingsInDatabase(tour, QStringLiteral(" where 交易方式 like '%%1%'").arg(kind)));
    expectEveryCell(tour, u"交易", kind);
    Tour::expect(tour.person().see<QCheckBox>(box).isChecked(), QStringLiteral("%1应已选中").arg(box));
}

void expectSize(Tour &tour, const QSize &size)
{
    seeWhole(tour, size, {"qzTxt_0", "SearchBox1", "ChkFind", "NavToolbar1_close", "Session"});
}

// The steps

void stay(Tour &) {}

void seeWholeList(Tour &tour)
{
    expectRows(tour, listingsInDatabase(tour));
}

void pickDistrict(Tour &tour)
{
    Person &person = tour.person();
    tour.district = largestDistrict(tour);
    person.focus(QStringLiteral("qzTxt_0"));
    person.withPopup([&] { person.press(Qt::Key_F4); },
                     [&] {
                         tour.takePicture(QStringLiteral("picker"));
                         person.type(tour.district);
                         person.press(Qt::Key_Return);
                     });
    person.click(QStringLiteral("NavToolbar1_refresh"));
}

void seeDistrict(Tour &tour)
{
    const QString text = fieldText(tour, QStringLiteral("qzTxt_0"));
    tour.note(QStringLiteral("  城区：%1").arg(text));
    Tour::expect(text == tour.district, QStringLiteral("城区应为“%1”").arg(tour.district));
    expectRows(tour, listingsInDatabase(tour, SqlText(QStringLiteral(" where A.地区='")) + typed(text) +
                                                  QStringLiteral("'")));
    expectEveryCell(tour, u"城区", text);
}

void pressAll(Tour &tour)
{
    tour.person().click(QStringLiteral("NavToolbar1_all"));
}

void seeNoFilter(Tour &tour)
{
    Tour::expect(fieldText(tour, QStringLiteral("qzTxt_0")).isEmpty(), QStringLiteral("城区应已清空"));
    seeWholeList(tour);
}

/// Looks for the listing in the last row, which stands behind the first page.
void searchFar(Tour &tour)
{
    Person &person = tour.person();
    person.focus(QStringLiteral("SearchBox1"));
    person.type(column(tour, u"房源编号").constLast());
    person.press(Qt::Key_Return);
}

void seeFarRow(Tour &tour)
{
    const auto &view = tour.person().see<QTableView>(QStringLiteral("VS"));
    const QModelIndex current = view.currentIndex();
    tour.note(QStringLiteral("  当前行：%1").arg(current.row() + 1));
    Tour::expect(current.row() == list(tour).rowCount() - 1, QStringLiteral("应停在最后一行"));
    Tour::expect(view.viewport()->rect().intersects(view.visualRect(current)),
                 QStringLiteral("找到的房源应在可见范围内"));
}

void search(Tour &tour)
{
    Person &person = tour.person();
    person.click(QStringLiteral("ChkFind"));
    person.focus(QStringLiteral("SearchBox1"));
    person.press(Qt::Key_A, Qt::ControlModifier);
    person.type(column(tour, u"楼盘字典").value(0));
    person.press(Qt::Key_Return);
}

void seeMatches(Tour &tour)
{
    noteList(tour);
    const QString text = fieldText(tour, QStringLiteral("SearchBox1"));
    const QAbstractItemModel &model = list(tour);
    tour.note(QStringLiteral("  搜索：%1").arg(text));
    Tour::expect(model.rowCount() > 0 && model.rowCount() < listingsInDatabase(tour),
                 QStringLiteral("过滤后应只剩部分房源"));
    for (int row = 0; row < model.rowCount(); ++row)
        Tour::expect(rowShows(model, row, text), QStringLiteral("第 %1 行没有“%2”").arg(row + 1).arg(text));
}

void clearSearch(Tour &tour)
{
    Person &person = tour.person();
    person.focus(QStringLiteral("SearchBox1"));
    person.press(Qt::Key_A, Qt::ControlModifier);
    person.press(Qt::Key_Delete);
    person.click(QStringLiteral("ChkFind"));
}

void pressBuy(Tour &tour)
{
    tour.person().click(QStringLiteral("NavToolbar1_buy"));
}

void seeSales(Tour &tour)
{
    expectKind(tour, QStringLiteral("售"), QStringLiteral("Chk_0"));
}

void pressRent(Tour &tour)
{
    tour.person().click(QStringLiteral("NavToolbar1_rent"));
}

void seeRents(Tour &tour)
{
    expectKind(tour, QStringLiteral("租"), QStringLiteral("Chk_1"));
}

void typeApostrophe(Tour &tour)
{
    tour.person().focus(QStringLiteral("qzTxt_7"));
    tour.person().type(QStringLiteral("东湖'名苑"));
    tour.person().press(Qt::Key_Return);
}

void seeMessage(Tour &tour)
{
    noteList(tour);
    tour.note(QStringLiteral("  消息：%1").arg(messages(tour).join(QStringLiteral(" | "))));
    Tour::expect(!messages(tour).isEmpty(), QStringLiteral("含撇号的筛选应有消息"));
    Tour::expect(fieldText(tour, QStringLiteral("qzTxt_7")) == u"东湖'名苑",
                 QStringLiteral("键入的文字应保留"));
}

void leaveMessage(Tour &tour)
{
    Person &person = tour.person();
    while (!messages(tour).isEmpty())
        person.click(QStringLiteral("closeMessage"));
    person.focus(QStringLiteral("qzTxt_7"));
    person.press(Qt::Key_Escape);
    pressAll(tour);
}

void changeScheme(Tour &tour)
{
    tour.person().click(QStringLiteral("SchemeToggle"));
}

void seeOtherScheme(Tour &tour)
{
    const QColor ground = tour.person().window().grab({0, 0, 1, 1}).toImage().pixelColor(0, 0);
    tour.note(QStringLiteral("  配色：%1").arg(ground.name()));
    Tour::expect(ground == look::tokens().navigation, QStringLiteral("画面应为当前配色"));
    Tour::expect(look::scheme() != tour.schemeAtStart, QStringLiteral("配色应已切换"));
    seeWholeList(tour);
}

void makeSmall(Tour &tour)
{
    changeScheme(tour);
    tour.person().window().resize(1280, 720);
}

void seeSmall(Tour &tour)
{
    expectSize(tour, {1280, 720});
}

int rowsWhole(Tour &tour)
{
    const auto &view = tour.person().see<QTableView>(QStringLiteral("VS"));
    return view.viewport()->height() / view.rowHeight(0);
}

void foldDetail(Tour &tour)
{
    tour.person().click(QStringLiteral("FoldDetail"));
    tour.person().waitFor([&] { return rowsWhole(tour) >= 14; }, QStringLiteral("14 行房源"));
}

void seeFolded(Tour &tour)
{
    tour.note(QStringLiteral("  看到 %1 行").arg(rowsWhole(tour)));
}

/// What a narrow window folds away.
void unfoldFilters(Tour &tour)
{
    tour.person().click(QStringLiteral("FoldDetail"));
    tour.person().click(QStringLiteral("MoreFilters"));
}

void seeFilters(Tour &tour)
{
    tour.person().focus(QStringLiteral("XPCmb"));
}

void makeLarge(Tour &tour)
{
    tour.person().click(QStringLiteral("MoreFilters"));
    tour.person().window().resize(1920, 1080);
}

void seeLarge(Tour &tour)
{
    expectSize(tour, {1920, 1080});
}

constexpr TourStep steps[] = {
    {u"载入房源列表", u"list", stay, seeWholeList},
    {u"用键盘在城区列表中选择并刷新", u"district", pickDistrict, seeDistrict},
    {u"用“全部”清除条件", u"all", pressAll, seeNoFilter},
    {u"搜索最后一行", u"search-far", searchFar, seeFarRow},
    {u"搜索并过滤", u"search", search, seeMatches},
    {u"清除搜索", u"search-cleared", clearSearch, seeWholeList},
    {u"出售", u"buy", pressBuy, seeSales},
    {u"出租", u"rent", pressRent, seeRents},
    {u"条件中的撇号", u"message", typeApostrophe, seeMessage},
    {u"关闭消息", u"message-closed", leaveMessage, seeNoFilter},
    {u"切换浅色或深色", u"scheme", changeScheme, seeOtherScheme},
    {u"1280×720", u"small", makeSmall, seeSmall},
    {u"1280×720，折叠详情", u"folded", foldDetail, seeFolded},
    {u"1280×720，更多筛选", u"filters", unfoldFilters, seeFilters},
    {u"1920×1080", u"large", makeLarge, seeLarge},
};

} // namespace

/// The tabs below the list come second: what follows shows the first of them filled. Then what is chosen
/// from, and what is done to the current listing. The list is shaped before the window is.
std::vector<TourStep> tourSteps()
{
    std::vector<TourStep> result(std::begin(steps), std::end(steps));
    const std::span<const TourStep> print = printSteps();
    result.insert(result.end(), print.begin(), print.end());
    const std::span<const TourStep> layout = layoutSteps();
    result.insert(std::ranges::find(result, u"scheme", &TourStep::picture), layout.begin(), layout.end());
    auto next = result.begin() + 1;
    for (const std::span<const TourStep> part : {detailSteps(), pickerSteps(), actionSteps()})
        next = result.insert(next, part.begin(), part.end()) + std::ssize(part);
    for (const std::span<const TourStep> part :
         {editorSteps(), customerSteps(), followUpSteps(), dictionarySteps(), startSteps(), sessionSteps()})
        result.insert(result.end(), part.begin(), part.end());
    return result;
}

} // namespace ebtq::shell
