#include "shell/tour/detail_steps.h"

#include "shell/tour/tour.h"

#include <QAbstractItemModel>
#include <QLineEdit>
#include <QTabBar>
#include <QTableView>

namespace ebtq::shell {

namespace {

constexpr int mostRowsTried = 60;

QString fieldText(Tour &tour, int number)
{
    return tour.person().see<QLineEdit>(QStringLiteral("qzFcTxt_%1").arg(number)).text();
}

int rowsShown(Tour &tour, const QString &grid)
{
    return tour.person().see<QTableView>(grid).model()->rowCount();
}

void goToTabBefore(Tour &tour)
{
    tour.person().focus(QStringLiteral("qzVSTabCtl1"));
    tour.person().press(Qt::Key_Left);
}

void seeTab(Tour &tour, const QString &caption)
{
    const auto &tabs = tour.person().see<QTabBar>(QStringLiteral("qzVSTabCtl1"));
    const QString shown = tabs.tabText(tabs.currentIndex());
    Tour::expect(shown == caption, QStringLiteral("应打开“%1”，看到的是“%2”").arg(caption, shown));
}

/// Goes down the list until the grid of the open tab has rows.
void moveToListingWith(Tour &tour, const QString &grid)
{
    Person &person = tour.person();
    person.focus(QStringLiteral("VS"));
    for (int row = 0; row < mostRowsTried && rowsShown(tour, grid) == 0; ++row)
        person.press(Qt::Key_Down);
    tour.note(QStringLiteral("  行数：%1").arg(rowsShown(tour, grid)));
    Tour::expect(rowsShown(tour, grid) > 0,
                 QStringLiteral("前 %1 套房源应有一套填满此页").arg(mostRowsTried));
}

void seePictures(Tour &tour)
{
    seeTab(tour, QStringLiteral("照片"));
}

void seeCustomers(Tour &tour)
{
    seeTab(tour, QStringLiteral("匹配客源"));
    moveToListingWith(tour, QStringLiteral("VsP"));
}

void seeFollowUps(Tour &tour)
{
    seeTab(tour, QStringLiteral("跟进记录"));
    moveToListingWith(tour, QStringLiteral("VsGj"));
}

void seeOwner(Tour &tour)
{
    seeTab(tour, QStringLiteral("保密信息"));
    tour.note(QStringLiteral("  楼盘位置：%1").arg(fieldText(tour, 2)));
    for (const int number : {2, 23, 24, 25, 29, 50, 53})
        Tour::expect(!fieldText(tour, number).isEmpty(), QStringLiteral("字段 %1 不应为空").arg(number));
}

void seeListing(Tour &tour)
{
    seeTab(tour, QStringLiteral("详细信息"));
    const auto &view = tour.person().see<QTableView>(QStringLiteral("VS"));
    const QString number = view.currentIndex().siblingAtColumn(1).data().toString();
    tour.note(QStringLiteral("  房源编号：%1").arg(fieldText(tour, 0)));
    Tour::expect(fieldText(tour, 0) == number, QStringLiteral("应显示当前房源 %1").arg(number));
}

void stay(Tour &) {}

constexpr TourStep steps[] = {
    {u"照片", u"detail-pictures", stay, seePictures},
    {u"匹配客源", u"detail-customers", goToTabBefore, seeCustomers},
    {u"跟进记录", u"detail-follow-ups", goToTabBefore, seeFollowUps},
    {u"保密信息", u"detail-owner", goToTabBefore, seeOwner},
    {u"详细信息", u"detail-listing", goToTabBefore, seeListing},
};

} // namespace

std::span<const TourStep> detailSteps()
{
    return steps;
}

} // namespace ebtq::shell
