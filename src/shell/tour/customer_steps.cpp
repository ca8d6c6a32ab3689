#include "shell/tour/customer_steps.h"

#include "shell/navigation.h"
#include "shell/tour/detail_walk.h"
#include "shell/tour/tour.h"

#include <QAbstractItemModel>
#include <QLabel>
#include <QTableView>

namespace ebtq::shell {

namespace {

constexpr int nameField = 1;
constexpr int telephoneField = 4;
constexpr int nameColumn = 4;
const QString name = QStringLiteral("林小姐");

qsizetype stored(Tour &tour, const QString &condition)
{
    const QString sql = QStringLiteral("select 客源ID from fykh") + condition;
    return tour.connection().query(SqlText(sql)).rowCount();
}

void open(Tour &tour)
{
    Person &person = tour.person();
    person.window().resize(1440, 900);
    person.click(Navigation::entryName(host::CustomerModule));
    waitForList(tour, QStringLiteral("客源列表"));
}

void seeList(Tour &tour)
{
    const qsizetype all = stored(tour, {});
    Tour::expect(rowsShown(tour, QStringLiteral("VS")) == all, QStringLiteral("应列出全部客源"));
    Tour::expect(tour.person().see<QLabel>(QStringLiteral("StatusCount")).text() ==
                     QStringLiteral("共 %1 条").arg(all),
                 QStringLiteral("状态应为行数"));
}

void goToNextTab(Tour &tour)
{
    tour.person().focus(QStringLiteral("qzVSTabCtl1"));
    tour.person().press(Qt::Key_Right);
}

void seeContact(Tour &tour)
{
    seeTab(tour, QStringLiteral("保密信息"));
}

void seeListings(Tour &tour)
{
    seeTab(tour, QStringLiteral("匹配房源"));
    moveToRecordWith(tour, QStringLiteral("VsP"), QStringLiteral("位客源"));
}

void askWhy(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("WhyMatch")); },
                      [&] {
                          tour.takePicture(QStringLiteral("customer-why"));
                          person.press(Qt::Key_Escape);
                      });
}

void seeFollowUps(Tour &tour)
{
    seeTab(tour, QStringLiteral("跟进记录"));
    moveToRecordWith(tour, QStringLiteral("VsGj"), QStringLiteral("位客源"));
}

QString field(int number)
{
    return QStringLiteral("qzTxt_%1").arg(number);
}

/// Refused without a telephone number, then saved. The form stays open for the next one.
void writeRequest(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("NavToolbar1_new")); },
                      [&] {
                          tour.takePicture(QStringLiteral("customer-empty"));
                          person.fill(field(nameField), name);
                          person.withDialog([&] { person.click(QStringLiteral("Cmd_0")); },
                                            [&] {
                                                tour.takePicture(QStringLiteral("customer-refused"));
                                                person.press(Qt::Key_Return);
                                            });
                          person.fill(field(telephoneField), QStringLiteral("138****2026"));
                          tour.takePicture(QStringLiteral("customer-filled"));
                          person.withDialog([&] { person.click(QStringLiteral("Cmd_0")); },
                                            [&] { person.press(Qt::Key_Escape); });
                          person.click(QStringLiteral("Cmd_1"));
                      });
}

void seeRequest(Tour &tour)
{
    Tour::expect(stored(tour, QStringLiteral(" where 客户名称='%1'").arg(name)) == 1,
                 QStringLiteral("客源应已保存一条"));
    const auto &view = tour.person().see<QTableView>(QStringLiteral("VS"));
    const QAbstractItemModel &model = *view.model();
    Tour::expect(model.index(0, nameColumn).data().toString() == name, QStringLiteral("新客源应在第一行"));
}

void askForDeletion(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("NavToolbar1_delete")); },
                      [&] {
                          tour.takePicture(QStringLiteral("customer-delete-question"));
                          person.press(Qt::Key_Escape);
                      });
}

constexpr TourStep steps[] = {
    {u"打开客源列表", u"customers", open, seeList},
    {u"客源的保密信息", u"customer-contact", goToNextTab, seeContact},
    {u"匹配房源", u"customer-listings", goToNextTab, seeListings},
    {u"为什么匹配", u"customer-why-closed", askWhy, seeListings},
    {u"客源的跟进记录", u"customer-follow-ups", goToNextTab, seeFollowUps},
    {u"新建客源", u"customer-saved", writeRequest, seeRequest},
    {u"删除客源前询问", u"customer-kept", askForDeletion, seeRequest},
};

} // namespace

std::span<const TourStep> customerSteps()
{
    return steps;
}

} // namespace ebtq::shell
