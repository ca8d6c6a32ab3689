#include "shell/tour/picker_steps.h"

#include "shell/tour/tour.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QLineEdit>
#include <QTableView>

namespace ebtq::shell {

namespace {

const QString buildingField = QStringLiteral("qzTxt_7");
const QString refreshButton = QStringLiteral("NavToolbar1_refresh");

QTableView &rowsOfPopup()
{
    const QWidget *popup = QApplication::activePopupWidget();
    auto *rows = popup ? popup->findChild<QTableView *>(QStringLiteral("VS")) : nullptr;
    Tour::expect(rows, QStringLiteral("应弹出选择列表"));
    return *rows;
}

QString cellOfPopup(int row, int column)
{
    return rowsOfPopup().model()->index(row, column).data().toString();
}

void typeIntoFindBox(Tour &tour, const QString &text)
{
    QApplication::activePopupWidget()->findChild<QWidget *>(QStringLiteral("Txt_0"))->setFocus();
    tour.person().type(text);
}

/// Opens a picker as a module does, beside the building field, and gives text and value of the choice.
QString letChoose(Tour &tour, const QString &name, const ParameterList &parameters,
                  const std::function<void()> &choose)
{
    QString text;
    QVariant value;
    const auto &field = tour.person().see(buildingField);
    const QPoint corner = field.mapToGlobal(QPoint(0, field.height()));
    HostPicker &picker = tour.app().Picker(name);
    picker.Parameters() = parameters;
    tour.person().withPopup([&] { picker.Show(corner.x(), corner.y(), text, value); }, choose);
    tour.note(QStringLiteral("  选择：%1（%2）").arg(text, value.toString()));
    return text;
}

void pickBuilding(Tour &tour)
{
    Person &person = tour.person();
    person.focus(buildingField);
    person.withPopup([&] { person.press(Qt::Key_F4); },
                     [&] {
                         constexpr int abbreviation = 2;
                         constexpr int name = 3;
                         tour.building = cellOfPopup(1, name);
                         typeIntoFindBox(tour, cellOfPopup(1, abbreviation));
                         tour.takePicture(QStringLiteral("picker-building"));
                         person.press(Qt::Key_Return);
                     });
    person.click(refreshButton);
}

void seeBuilding(Tour &tour)
{
    const QString text = tour.person().see<QLineEdit>(buildingField).text();
    tour.note(QStringLiteral("  楼盘：%1").arg(text));
    Tour::expect(!text.isEmpty() && text == tour.building, QStringLiteral("楼盘应为“%1”").arg(tour.building));
}

void pickBlock(Tour &tour)
{
    ParameterList parameters;
    parameters.Item(QStringLiteral("楼盘")).Value = tour.building;
    parameters.Item(QStringLiteral("lock")).Value = 1;
    const QString text = letChoose(tour, QStringLiteral("selpdmdz"), parameters, [&] {
        tour.takePicture(QStringLiteral("picker-block"));
        tour.person().press(Qt::Key_Return);
    });
    Tour::expect(!text.isEmpty(), QStringLiteral("楼盘“%1”应有栋座").arg(tour.building));
}

void pickRemarks(Tour &tour)
{
    ParameterList parameters;
    for (const auto &[name, value] : {std::pair(u"编号", u"代码"), std::pair(u"名称", u"名称"),
                                      std::pair(u"ID", u"代码"), std::pair(u"table", u"pdmsjzd"),
                                      std::pair(u"where", u"类型='房源备注'"), std::pair(u"order", u"代码")})
        parameters.Item(QString::fromUtf16(name)).Value = QString::fromUtf16(value);
    const QString text = letChoose(tour, QStringLiteral("selpdm"), parameters, [&] {
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Space})
            tour.person().press(key);
        tour.takePicture(QStringLiteral("picker-dictionary"));
        typeIntoFindBox(tour, {});
        tour.person().press(Qt::Key_Return);
    });
    Tour::expect(text.count(u',') == 1, QStringLiteral("应选中两条备注"));
}

void leaveBuilding(Tour &tour)
{
    tour.person().click(QStringLiteral("NavToolbar1_all"));
}

void seeNoBuilding(Tour &tour)
{
    Tour::expect(tour.person().see<QLineEdit>(buildingField).text().isEmpty(),
                 QStringLiteral("楼盘应已清除"));
}

constexpr TourStep steps[] = {
    {u"选择楼盘", u"building", pickBuilding, seeBuilding},
    {u"选择栋座", u"block", pickBlock, seeBuilding},
    {u"选择备注", u"remarks", pickRemarks, seeBuilding},
    {u"清除楼盘", u"no-building", leaveBuilding, seeNoBuilding},
};

} // namespace

std::span<const TourStep> pickerSteps()
{
    return steps;
}

} // namespace ebtq::shell
