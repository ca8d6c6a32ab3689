#include "shell/tour/layout_steps.h"

#include "contracts/host_contracts.h"
#include "shell/tour/tour.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFile>
#include <QHeaderView>
#include <QMenu>
#include <QTableView>

namespace ebtq::shell {

namespace {

constexpr int district = 4;
constexpr int direction = 12;

QTableView &list(Tour &tour)
{
    return tour.person().see<QTableView>(QStringLiteral("VS"));
}

QString layoutFile(Tour &tour)
{
    return tour.app().Session().AppPath() + QStringLiteral("/selfbb/Fcxx.txt");
}

void refresh(Tour &tour)
{
    tour.person().click(QStringLiteral("NavToolbar1_refresh"));
}

/// From the menu that the right button opens on the header.
void chooseOnHeader(Tour &tour, const QString &text, const QString &picture)
{
    QWidget *header = list(tour).horizontalHeader()->viewport();
    const QPoint place = header->rect().center();
    QContextMenuEvent request(QContextMenuEvent::Mouse, place, header->mapToGlobal(place));
    QCoreApplication::sendEvent(header, &request);
    auto *menu = list(tour).findChild<QMenu *>(QStringLiteral("ColumnMenu"));
    Tour::expect(menu && menu->isVisible(), QStringLiteral("表头应有列菜单"));
    tour.takePicture(picture);
    for (QAction *action : menu->actions()) {
        if (action->text() == text)
            action->trigger();
    }
    menu->close();
}

/// A column is put elsewhere as the header does it when the mouse lets go.
void shapeColumns(Tour &tour)
{
    chooseOnHeader(tour, QStringLiteral("朝向"), QStringLiteral("column-menu"));
    QHeaderView &header = *list(tour).horizontalHeader();
    header.moveSection(header.visualIndex(district), 1);
    refresh(tour);
}

void seeColumns(Tour &tour)
{
    Tour::expect(list(tour).isColumnHidden(direction), QStringLiteral("“朝向”一列应已隐藏"));
    Tour::expect(list(tour).horizontalHeader()->visualIndex(district) == 1,
                 QStringLiteral("“城区”应移到前面，刷新后仍在那里"));
}

/// What an administrator puts into the layout file of an agency that wants to see its areas by district.
void writeTotals(Tour &tour)
{
    QFile file(layoutFile(tour));
    const QByteArray keys = "[VsIsSort]\nVsCol4=1\n[VsIsGroupOn]\nVsCol4=1\n"
                            "[VsIsTotalOn]\nVsCol11=1\nVsCol14=1\n";
    Tour::expect(file.open(QIODevice::Append) && file.write(keys) == keys.size(),
                 QStringLiteral("无法写入布局文件"));
    file.close();
    refresh(tour);
    tour.person().focus(QStringLiteral("VS"));
    tour.person().press(Qt::Key_End, Qt::ControlModifier);
}

void seeTotals(Tour &tour)
{
    const QAbstractItemModel &model = *list(tour).model();
    QStringList labels;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (const QString label = model.index(row, 0).data().toString(); !label.isEmpty())
            labels.append(label);
    }
    tour.note(QStringLiteral("  %1").arg(labels.join(QStringLiteral("、"))));
    Tour::expect(labels.size() > 2 && labels.constFirst().endsWith(u"小计") && labels.constLast() == u"合计",
                 QStringLiteral("应按城区分别小计，最后合计"));
}

void takeShapeBack(Tour &tour)
{
    QFile::remove(layoutFile(tour));
    chooseOnHeader(tour, QStringLiteral("恢复默认布局"), QStringLiteral("column-menu"));
    refresh(tour);
}

void seeGivenShape(Tour &tour)
{
    Tour::expect(!list(tour).isColumnHidden(direction), QStringLiteral("“朝向”一列应重新显示"));
    Tour::expect(list(tour).horizontalHeader()->visualIndex(district) == district,
                 QStringLiteral("各列应回到原来的位置"));
    Tour::expect(QFile::exists(layoutFile(tour)), QStringLiteral("布局应已保存"));
}

constexpr TourStep steps[] = {
    {u"隐藏一列，移动一列", u"columns", shapeColumns, seeColumns},
    {u"按城区小计", u"totals", writeTotals, seeTotals},
    {u"恢复默认布局", u"columns-given", takeShapeBack, seeGivenShape},
};

} // namespace

std::span<const TourStep> layoutSteps()
{
    return steps;
}

} // namespace ebtq::shell
