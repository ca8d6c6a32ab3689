#include "shell/tour/detail_walk.h"

#include "shell/tour/tour.h"

#include <QAbstractItemModel>
#include <QTabBar>
#include <QTableView>

#include <algorithm>

namespace ebtq::shell {

namespace {

constexpr int mostRowsTried = 60;

} // namespace

void seeWhole(Tour &tour, const QSize &size, std::initializer_list<const char *> names)
{
    const QWidget &window = tour.person().window();
    const QSize seen = window.size();
    tour.note(QStringLiteral("  窗口：%1×%2").arg(seen.width()).arg(seen.height()));
    Tour::expect(seen == size, QStringLiteral("窗口应为 %1×%2").arg(size.width()).arg(size.height()));
    for (const char *name : names) {
        const auto &widget = tour.person().see(QLatin1String(name));
        const QRect place(widget.mapTo(&window, QPoint()), widget.size());
        Tour::expect(window.rect().contains(place),
                     QStringLiteral("控件“%1”被窗口边缘截断").arg(QLatin1String(name)));
    }
}

void waitForList(Tour &tour, const QString &what)
{
    const auto isInSight = [&] {
        const auto lists = tour.person().window().findChildren<QTableView *>(QStringLiteral("VS"));
        return std::ranges::any_of(lists, &QWidget::isVisible);
    };
    tour.person().waitFor(isInSight, what);
}

int rowsShown(Tour &tour, const QString &grid)
{
    return tour.person().see<QTableView>(grid).model()->rowCount();
}

void seeTab(Tour &tour, const QString &caption)
{
    const auto &tabs = tour.person().see<QTabBar>(QStringLiteral("qzVSTabCtl1"));
    const QString shown = tabs.tabText(tabs.currentIndex()).section(QStringLiteral(" ("), 0, 0);
    Tour::expect(shown == caption, QStringLiteral("应打开“%1”，看到的是“%2”").arg(caption, shown));
}

void moveToRecordWith(Tour &tour, const QString &grid, const QString &record)
{
    Person &person = tour.person();
    person.focus(QStringLiteral("VS"));
    for (int row = 0; row < mostRowsTried && rowsShown(tour, grid) == 0; ++row)
        person.press(Qt::Key_Down);
    tour.note(QStringLiteral("  行数：%1").arg(rowsShown(tour, grid)));
    Tour::expect(rowsShown(tour, grid) > 0,
                 QStringLiteral("前 %1 %2应有一个填满此页").arg(mostRowsTried).arg(record));
}

} // namespace ebtq::shell
