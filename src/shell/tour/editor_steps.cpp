#include "shell/tour/editor_steps.h"

#include "shell/tour/tour.h"

#include <QAbstractItemModel>
#include <QLineEdit>
#include <QTableView>

namespace ebtq::shell {

namespace {

constexpr int numberColumn = 1;
constexpr int priceColumn = 14;

QString fieldName(int number)
{
    return QStringLiteral("qzFcTxt_%1").arg(number);
}

QString fieldText(Tour &tour, int number)
{
    return tour.person().see<QLineEdit>(fieldName(number)).text();
}

/// A cell of the current row of the list.
QString currentCell(Tour &tour, int column)
{
    const auto &view = tour.person().see<QTableView>(QStringLiteral("VS"));
    return view.currentIndex().siblingAtColumn(column).data().toString();
}

QString stored(Tour &tour, const QString &columns, const QString &number)
{
    const RowBlock rows = tour.connection().query(
        SqlText(QStringLiteral("select ") + columns + QStringLiteral(" from fyxx where 房源编号='")) +
        typed(number) + QStringLiteral("'"));
    Tour::expect(rows.rowCount() == 1, QStringLiteral("数据库中应有一套房源 %1").arg(number));
    QStringList cells;
    for (int column = 0; column < rows.columnCount(); ++column)
        cells.append(rows.value(0, column).toString());
    return cells.join(u'|');
}

/// Texts as an agent types them; district, building and block are those of a listing that is there.
void fillNewListing(Tour &tour)
{
    const RowBlock known = tour.connection().query(SqlText(QStringLiteral(
        "select top 1 地区,楼盘字典,栋座位置 from fyxx where 栋座位置<>'' order by 房源编号")));
    Tour::expect(known.rowCount() == 1, QStringLiteral("数据库中应有带栋座的房源"));
    const std::pair<int, QString> texts[] = {
        {1, known.value(0, 0).toString()}, {6, known.value(0, 1).toString()},
        {3, known.value(0, 2).toString()}, {8, QStringLiteral("1802")},
        {14, QStringLiteral("18")},        {4, QStringLiteral("02")},
        {7, QStringLiteral("128.5")},      {23, QStringLiteral("出售")},
        {24, QStringLiteral("有效")},      {25, QStringLiteral("586")},
        {48, QStringLiteral("有匙")},      {49, QStringLiteral("A-17")},
        {50, QStringLiteral("陈先生")}};
    for (const auto &[number, text] : texts)
        tour.person().fill(fieldName(number), text);
    tour.person().focus(QStringLiteral("Txt_1"));
    tour.person().type(QStringLiteral("满五唯一，可议价"));
}

void makeListing(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("NavToolbar1_new")); },
                      [&] {
                          tour.takePicture(QStringLiteral("editor-empty"));
                          fillNewListing(tour);
                          tour.takePicture(QStringLiteral("editor-typed"));
                          person.withDialog([&] { person.click(QStringLiteral("Cmd_0")); },
                                            [&] {
                                                tour.takePicture(QStringLiteral("editor-more"));
                                                person.press(Qt::Key_Return);
                                            });
                      });
}

void seeNewListing(Tour &tour)
{
    const QString number = currentCell(tour, numberColumn);
    const QString row =
        stored(tour, QStringLiteral("房号,总面积,售房价格,房型_厅,钥匙号,业主,备注,房源属性"), number);
    tour.note(QStringLiteral("  新房源：%1 %2").arg(number, row));
    Tour::expect(row == u"1802|128.5|586|2|A-17|陈先生|满五唯一，可议价|1",
                 QStringLiteral("房源应按键入的内容保存"));
    Tour::expect(tour.person().see<QTableView>(QStringLiteral("VS")).currentIndex().row() == 0,
                 QStringLiteral("新房源应在列表最上面"));
}

void changeListing(Tour &tour)
{
    Person &person = tour.person();
    person.focus(QStringLiteral("VS"));
    person.press(Qt::Key_Down);
    person.withDialog([&] { person.click(QStringLiteral("NavToolbar1_edit")); },
                      [&] {
                          tour.note(QStringLiteral("  修改：%1").arg(fieldText(tour, 0)));
                          tour.takePicture(QStringLiteral("editor-filled"));
                          person.fill(fieldName(25), QStringLiteral("612.5"));
                          person.click(QStringLiteral("Cmd_0"));
                      });
}

void seeChange(Tour &tour)
{
    const QString price = currentCell(tour, priceColumn);
    const QString kept = stored(tour, QStringLiteral("售房价格"), currentCell(tour, numberColumn));
    tour.note(QStringLiteral("  售总价：%1").arg(price));
    Tour::expect(price == u"612.5万元" && kept == u"612.5", QStringLiteral("售价应为修改后的 612.5 万元"));
}

/// The next listing of the list, a change to it that is given up, and a copy of it that is not saved.
void goThroughListings(Tour &tour)
{
    Person &person = tour.person();
    const auto leaveUnsaved = [&] {
        person.withDialog([&] { person.press(Qt::Key_Escape); }, [&] { person.press(Qt::Key_N); });
    };
    person.withDialog([&] { person.click(QStringLiteral("NavToolbar1_edit")); },
                      [&] {
                          person.click(QStringLiteral("Cmd_5"));
                          person.fill(fieldName(33), QStringLiteral("+7"));
                          tour.note(QStringLiteral("  委托日期：%1").arg(fieldText(tour, 33)));
                          tour.takePicture(QStringLiteral("editor-next"));
                          leaveUnsaved();
                      });
    person.withDialog(
        [&] {
            person.focus(QStringLiteral("VS"));
            person.withPopup([&] { person.askForMenu(QStringLiteral("VS")); },
                             [&] { person.type(QStringLiteral("w")); });
        },
        [&] {
            tour.takePicture(QStringLiteral("editor-copy"));
            leaveUnsaved();
        });
}

void seeNeighbour(Tour &tour)
{
    Tour::expect(tour.person().see<QTableView>(QStringLiteral("VS")).currentIndex().row() == 2,
                 QStringLiteral("列表应停在下一条"));
}

constexpr TourStep steps[] = {
    {u"新建房源", u"editor-new", makeListing, seeNewListing},
    {u"修改房源", u"editor-change", changeListing, seeChange},
    {u"编辑窗口中的下一条，复制为新房源", u"editor-neighbours", goThroughListings, seeNeighbour},
};

} // namespace

std::span<const TourStep> editorSteps()
{
    return steps;
}

} // namespace ebtq::shell
