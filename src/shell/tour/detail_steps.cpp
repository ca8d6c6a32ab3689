#include "shell/tour/detail_steps.h"

#include "shell/tour/detail_walk.h"
#include "shell/tour/tour.h"

#include <QLineEdit>
#include <QTableView>

namespace ebtq::shell {

namespace {

QString fieldText(Tour &tour, int number)
{
    return tour.person().see<QLineEdit>(QStringLiteral("qzFcTxt_%1").arg(number)).text();
}

void goToTabBefore(Tour &tour)
{
    tour.person().focus(QStringLiteral("qzVSTabCtl1"));
    tour.person().press(Qt::Key_Left);
}

void goToLastTab(Tour &tour)
{
    seeTab(tour, QStringLiteral("详细信息")); // at the first start
    tour.person().press(Qt::Key_5, Qt::AltModifier);
}

void seePictures(Tour &tour)
{
    seeTab(tour, QStringLiteral("照片"));
}

void seeCustomers(Tour &tour)
{
    seeTab(tour, QStringLiteral("匹配客源"));
    moveToRecordWith(tour, QStringLiteral("VsP"), QStringLiteral("套房源"));
}

void seeFollowUps(Tour &tour)
{
    seeTab(tour, QStringLiteral("跟进记录"));
    moveToRecordWith(tour, QStringLiteral("VsGj"), QStringLiteral("套房源"));
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

constexpr TourStep steps[] = {
    {u"照片", u"detail-pictures", goToLastTab, seePictures},
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
