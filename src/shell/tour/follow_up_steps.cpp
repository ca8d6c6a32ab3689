#include "shell/tour/follow_up_steps.h"

#include "database/values/date_text.h"
#include "shell/navigation.h"
#include "shell/tour/detail_walk.h"
#include "shell/tour/tour.h"

#include <QAbstractItemModel>
#include <QDate>
#include <QLabel>
#include <QTableView>
#include <QToolButton>

namespace ebtq::shell {

namespace {

constexpr int reminderTime = 3;
constexpr int contentsColumn = 2;
constexpr int resultColumn = 9;
const QString talk = QStringLiteral("带看后有意向，约定今天回电");
const QString answer = QStringLiteral("已回电，周末再看");

QString list()
{
    return QStringLiteral("VS");
}

/// The tick without a date is warned of first.
void writeReminder(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("NavToolbar1_gj")); },
                      [&] {
                          person.focus(QStringLiteral("Txt"));
                          person.type(talk);
                          person.click(QStringLiteral("Chk"));
                          tour.takePicture(QStringLiteral("reminder-hint"));
                          person.focus(QStringLiteral("qzTxt_%1").arg(reminderTime));
                          person.type(regionalDate(QDate::currentDate()));
                          person.press(Qt::Key_Tab);
                          person.click(QStringLiteral("Cmd_0"));
                      });
    person.waitFor(
        [&] {
            const auto &entry = person.see<QToolButton>(Navigation::entryName(host::ReminderModule));
            return entry.text().contains(u'(');
        },
        QStringLiteral("导航中的提醒条数"));
}

void seeNotice(Tour &tour)
{
    const QString text = tour.person().see<QLabel>(QStringLiteral("ReminderNotice_text")).text();
    tour.note(QStringLiteral("  提示：%1").arg(text));
}

void openReminders(Tour &tour)
{
    Person &person = tour.person();
    person.click(QStringLiteral("ReminderNotice_act"));
    waitForList(tour, QStringLiteral("提醒列表"));
}

void seeReminders(Tour &tour)
{
    Tour::expect(rowsShown(tour, list()) > 0, QStringLiteral("应有到期的提醒"));
}

void askForDay(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("Command_postpone")); },
                      [&] {
                          person.click(QStringLiteral("Days_3"));
                          tour.takePicture(QStringLiteral("reminder-postpone"));
                          person.press(Qt::Key_Escape);
                      });
}

/// Refused while it is empty.
void settle(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("Command_settle")); },
                      [&] {
                          person.click(QStringLiteral("Save"));
                          tour.takePicture(QStringLiteral("reminder-refused"));
                          person.focus(QStringLiteral("Result"));
                          person.type(answer);
                          tour.takePicture(QStringLiteral("reminder-settle"));
                          person.click(QStringLiteral("Save"));
                      });
}

void seeSettled(Tour &tour)
{
    const QString sql = QStringLiteral("select 跟进ID from fygj where 处理结果='%1'").arg(answer);
    Tour::expect(tour.connection().query(SqlText(sql)).rowCount() == 1,
                 QStringLiteral("处理结果应已保存一条"));
}

void openFollowUps(Tour &tour)
{
    Person &person = tour.person();
    person.click(Navigation::entryName(host::FollowUpModule));
    waitForList(tour, QStringLiteral("跟进列表"));
}

void seeFollowUps(Tour &tour)
{
    const QAbstractItemModel &model = *tour.person().see<QTableView>(list()).model();
    Tour::expect(model.index(0, resultColumn).data().toString() == answer,
                 QStringLiteral("最新的跟进应在第一行，并带处理结果"));
}

void find(Tour &tour)
{
    Person &person = tour.person();
    auto &view = person.see<QTableView>(list());
    view.setCurrentIndex(view.model()->index(view.model()->rowCount() - 1, contentsColumn));
    person.click(QStringLiteral("Command_find"));
    person.type(QStringLiteral("约"));
    person.press(Qt::Key_Return);
}

void filter(Tour &tour)
{
    tour.person().click(QStringLiteral("FindFilters"));
}

void seeFiltered(Tour &tour)
{
    const int rows = rowsShown(tour, list());
    tour.note(QStringLiteral("  过滤后 %1 行").arg(rows));
    Tour::expect(rows > 0, QStringLiteral("过滤后应剩下含有“约”的跟进"));
}

void preview(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("Command_preview")); },
                      [&] {
                          tour.takePicture(QStringLiteral("follow-ups-on-paper"));
                          person.press(Qt::Key_Escape);
                      });
    person.click(QStringLiteral("CloseFind"));
}

void openSource(Tour &tour)
{
    tour.person().click(QStringLiteral("Command_source"));
}

void seeSource(Tour &tour)
{
    Person &person = tour.person();
    person.waitFor(
        [&] {
            const auto &entry = person.see<QToolButton>(Navigation::entryName(host::CustomerModule));
            return entry.isChecked();
        },
        QStringLiteral("客源列表"));
    const QAbstractItemModel &model = *person.see<QTableView>(QStringLiteral("VsGj")).model();
    Tour::expect(model.index(0, resultColumn).data().toString() == answer,
                 QStringLiteral("客源的跟进记录应带处理结果"));
}

constexpr TourStep steps[] = {
    {u"写跟进并设提醒", u"reminder-notice", writeReminder, seeNotice},
    {u"打开到期的提醒", u"reminders", openReminders, seeReminders},
    {u"推迟提醒", u"reminder-kept", askForDay, seeReminders},
    {u"处理提醒", u"reminder-settled", settle, seeSettled},
    {u"跟进列表", u"follow-ups", openFollowUps, seeFollowUps},
    {u"查找跟进", u"follow-ups-found", find, seeFollowUps},
    {u"过滤跟进", u"follow-ups-filtered", filter, seeFiltered},
    {u"预览跟进", u"follow-ups-previewed", preview, seeFollowUps},
    {u"打开跟进的来源", u"follow-up-source", openSource, seeSource},
};

} // namespace

std::span<const TourStep> followUpSteps()
{
    return steps;
}

} // namespace ebtq::shell
