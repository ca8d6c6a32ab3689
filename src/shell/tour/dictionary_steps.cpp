#include "shell/tour/dictionary_steps.h"

#include "shell/message_bar.h"
#include "shell/navigation.h"
#include "shell/tour/detail_walk.h"
#include "shell/tour/tour.h"

#include <QAbstractItemModel>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTreeView>

#include <algorithm>

namespace ebtq::shell {

namespace {

constexpr int numberField = 0;
constexpr int nameField = 1;
constexpr int districtField = 2;
constexpr int thirdField = 2;
constexpr int blockColumn = 2;
const QString blockName = QStringLiteral("会所");
const QString blockNumber = QStringLiteral("S1");
const QString newNumber = QStringLiteral("91");
const QString newName = QStringLiteral("暂定");

// What is on the screen

QString field(int number)
{
    return QStringLiteral("qzTxt_%1").arg(number);
}

QString fieldText(Tour &tour, int number)
{
    return tour.person().see<QLineEdit>(field(number)).text();
}

QTreeView &tree(Tour &tour)
{
    return tour.person().see<QTreeView>(QStringLiteral("TV"));
}

QTableView &blocks(Tour &tour)
{
    return tour.person().see<QTableView>(QStringLiteral("qzGrid"));
}

QString messages(Tour &tour)
{
    return tour.person().window().findChild<MessageBar *>()->shownTexts().join(QStringLiteral(" | "));
}

QString stored(Tour &tour, const QString &query)
{
    const RowBlock rows = tour.connection().query(SqlText(query));
    return rows.rowCount() > 0 ? rows.value(0, 0).toString() : QString();
}

/// The first node in sight with that in its text; invalid when there is none.
QModelIndex node(Tour &tour, const QString &text)
{
    QTreeView &view = tree(tour);
    QModelIndex index = view.model()->index(0, 0);
    while (index.isValid() && !index.data().toString().contains(text))
        index = view.indexBelow(index);
    return index;
}

QModelIndex seeNode(Tour &tour, const QString &text)
{
    tour.person().waitFor([&] { return node(tour, text).isValid(); }, QStringLiteral("树中的“%1”").arg(text));
    return node(tour, text);
}

// What is done

void command(Tour &tour, const QString &name)
{
    tour.person().click(QStringLiteral("Command_") + name);
}

/// The command's question is shown and answered by a letter.
void answer(Tour &tour, const QString &commandName, const QString &picture, Qt::Key letter)
{
    tour.person().withDialog([&] { command(tour, commandName); },
                             [&] {
                                 tour.takePicture(picture);
                                 tour.person().press(letter);
                             });
}

void clickNode(Tour &tour, const QString &text)
{
    QTreeView &view = tree(tour);
    const QModelIndex index = seeNode(tour, text);
    view.scrollTo(index);
    tour.person().click(*view.viewport(), view.visualRect(index).center());
}

void leaveMessages(Tour &tour)
{
    while (!messages(tour).isEmpty())
        tour.person().click(QStringLiteral("closeMessage"));
}

// What must be seen

void expectState(Tour &tour, const QString &state)
{
    const QString seen = tour.person().see<QLabel>(QStringLiteral("FormState")).text();
    Tour::expect(seen == state, QStringLiteral("应为“%1”状态，看到的是“%2”").arg(state, seen));
}

void seeBrowsing(Tour &tour)
{
    expectState(tour, QStringLiteral("浏览"));
}

void seeEditing(Tour &tour)
{
    expectState(tour, QStringLiteral("编辑"));
}

void seeRefusal(Tour &tour)
{
    tour.note(QStringLiteral("  消息：%1").arg(messages(tour)));
    Tour::expect(!messages(tour).isEmpty(), QStringLiteral("应有拒绝的消息"));
}

// The buildings

template<host::ModuleId module> void open(Tour &tour)
{
    tour.person().click(Navigation::entryName(module));
    const auto isFilled = [&] {
        const auto trees = tour.person().window().findChildren<QTreeView *>(QStringLiteral("TV"));
        return std::ranges::any_of(
            trees, [](const QTreeView *each) { return each->isVisible() && each->model()->rowCount() > 0; });
    };
    tour.person().waitFor(isFilled, QStringLiteral("字典的树"));
}

/// One that listings use.
void findBuilding(Tour &tour)
{
    Person &person = tour.person();
    tour.building =
        stored(tour, QStringLiteral("select top 1 A.楼盘编号 from pdmlpzd A,fyxx B where A.楼盘ID=B.楼盘ID"));
    person.withDialog([&] { command(tour, QStringLiteral("find")); },
                      [&] {
                          person.type(tour.building);
                          tour.takePicture(QStringLiteral("building-find"));
                          person.press(Qt::Key_Return);
                      });
}

void seeBuilding(Tour &tour)
{
    seeBrowsing(tour);
    Tour::expect(fieldText(tour, numberField) == tour.building, QStringLiteral("应显示所找的楼盘"));
    Tour::expect(blocks(tour).model()->rowCount() > 0, QStringLiteral("应列出楼盘的栋座"));
}

void filterBuildings(Tour &tour)
{
    tour.person().focus(QStringLiteral("Filter"));
    tour.person().type(fieldText(tour, nameField));
}

void seeFiltered(Tour &tour)
{
    Tour::expect(seeNode(tour, tour.building).parent().isValid(), QStringLiteral("筛选应保留上级地区"));
}

/// A block is renamed, another one added.
void editBlocks(Tour &tour)
{
    Person &person = tour.person();
    command(tour, QStringLiteral("edit"));
    QTableView &grid = blocks(tour);
    person.focus(QStringLiteral("qzGrid"));
    grid.setCurrentIndex(grid.model()->index(0, blockColumn));
    person.type(blockName);
    tour.takePicture(QStringLiteral("block-typed"));
    person.press(Qt::Key_Return);
    person.click(QStringLiteral("addBlock"));
    person.type(blockNumber);
    person.press(Qt::Key_Return);
    person.type(QStringLiteral("南楼"));
    person.press(Qt::Key_Return);
}

void save(Tour &tour)
{
    command(tour, QStringLiteral("save"));
}

void seeBlocksSaved(Tour &tour)
{
    seeBrowsing(tour);
    const QString renamed = QStringLiteral("select count(*) from pdmdz where 栋座名称='%1'").arg(blockName);
    const QString added = QStringLiteral("select 栋座名称 from pdmdz where 栋座编号='%1'").arg(blockNumber);
    Tour::expect(stored(tour, renamed) == u"1", QStringLiteral("栋座应已改名"));
    Tour::expect(stored(tour, added) == u"南楼", QStringLiteral("栋座应已增加"));
}

void deleteUsed(Tour &tour)
{
    answer(tour, QStringLiteral("delete"), QStringLiteral("building-delete-question"), Qt::Key_Y);
}

void clearFilter(Tour &tour)
{
    leaveMessages(tour);
    tour.person().focus(QStringLiteral("Filter"));
    tour.person().press(Qt::Key_Escape);
}

/// Onto the district beside its own.
void dragBuilding(Tour &tour)
{
    clearFilter(tour);
    QTreeView &view = tree(tour);
    const QModelIndex building = seeNode(tour, tour.building);
    const QModelIndex district = building.parent();
    const int beside = district.row() > 0 ? district.row() - 1 : 1;
    tour.district = district.siblingAtRow(beside).data().toString();
    const auto placeOf = [&](const QModelIndex &index) { return view.visualRect(index).center(); };
    tour.person().drag(*view.viewport(), placeOf(building), placeOf(district.siblingAtRow(beside)),
                       [&] { tour.takePicture(QStringLiteral("building-drag")); });
}

void seeDropped(Tour &tour)
{
    seeEditing(tour);
    Tour::expect(tour.district.endsWith(fieldText(tour, districtField)),
                 QStringLiteral("地区应为“%1”").arg(tour.district));
}

/// What is typed and not saved is asked about.
void leave(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(Navigation::entryName(host::ListingModule)); },
                      [&] {
                          tour.takePicture(QStringLiteral("building-leave-question"));
                          person.press(Qt::Key_Escape);
                      });
    answer(tour, QStringLiteral("cancel"), QStringLiteral("building-cancel-question"), Qt::Key_N);
}

void makeSmall(Tour &tour)
{
    tour.person().window().resize(1280, 720);
}

void seeSmall(Tour &tour)
{
    seeBuilding(tour);
    seeWhole(tour, {1280, 720}, {"FormState", "addBlock", "qzTxt_10"});
}

// Those without levels

/// A number that is taken.
void writeTwice(Tour &tour)
{
    clickNode(tour, QStringLiteral("01 "));
    const QString taken = fieldText(tour, numberField);
    command(tour, QStringLiteral("new"));
    tour.person().fill(field(numberField), taken);
    tour.person().fill(field(nameField), newName);
    save(tour);
}

void seeRefusedNew(Tour &tour)
{
    seeRefusal(tour);
    expectState(tour, QStringLiteral("新建"));
}

void writeAgain(Tour &tour)
{
    leaveMessages(tour);
    tour.person().fill(field(numberField), newNumber);
    save(tour);
}

void seeNew(Tour &tour)
{
    seeBrowsing(tour);
    Tour::expect(seeNode(tour, newNumber).data().toString() == newNumber + u' ' + newName,
                 QStringLiteral("树中应有新记录"));
}

void edit(Tour &tour)
{
    command(tour, QStringLiteral("edit"));
    tour.person().fill(field(thirdField), QStringLiteral("2"));
}

void deleteNew(Tour &tour)
{
    save(tour);
    answer(tour, QStringLiteral("delete"), QStringLiteral("delete-question"), Qt::Key_Y);
}

void seeDeleted(Tour &tour)
{
    seeBrowsing(tour);
    QTreeView &view = tree(tour);
    const QModelIndexList left = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, newName, -1,
                                                     Qt::MatchContains | Qt::MatchRecursive);
    Tour::expect(left.isEmpty(), QStringLiteral("树中不应再有“%1”").arg(newName));
}

constexpr TourStep steps[] = {
    {u"楼盘字典", u"buildings", open<host::BuildingModule>, seeBrowsing},
    {u"查找楼盘", u"building", findBuilding, seeBuilding},
    {u"筛选楼盘", u"buildings-filtered", filterBuildings, seeFiltered},
    {u"修改栋座", u"building-blocks", editBlocks, seeEditing},
    {u"保存栋座", u"building-saved", save, seeBlocksSaved},
    {u"不能删除已启用的楼盘", u"building-refused", deleteUsed, seeRefusal},
    {u"把楼盘拖到别的地区", u"building-dropped", dragBuilding, seeDropped},
    {u"离开前询问", u"building-kept", leave, seeBuilding},
    {u"楼盘字典 1280×720", u"buildings-small", makeSmall, seeSmall},
    {u"产权字典", u"rights", open<host::PropertyRightModule>, seeBrowsing},
    {u"编号重复的产权", u"right-refused", writeTwice, seeRefusedNew},
    {u"保存产权", u"right-saved", writeAgain, seeNew},
    {u"修改产权", u"right-edited", edit, seeEditing},
    {u"删除产权", u"right-deleted", deleteNew, seeDeleted},
    {u"房型字典", u"house-types", open<host::HouseTypeModule>, seeBrowsing},
    {u"编号重复的房型", u"house-type-refused", writeTwice, seeRefusedNew},
    {u"保存房型", u"house-type-saved", writeAgain, seeNew},
    {u"修改房型", u"house-type-edited", edit, seeEditing},
    {u"删除房型", u"house-type-deleted", deleteNew, seeDeleted},
};

} // namespace

std::span<const TourStep> dictionarySteps()
{
    return steps;
}

} // namespace ebtq::shell
