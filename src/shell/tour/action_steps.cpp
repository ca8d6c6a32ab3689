#include "shell/tour/action_steps.h"

#include "shell/tour/tour.h"

#include <QAbstractItemModel>
#include <QTableView>

namespace ebtq::shell {

namespace {

const QString contents = QStringLiteral("客户看房后很满意，出价 300 万，业主愿意再谈。");

qsizetype stored(Tour &tour, const QString &rows)
{
    return tour.connection().query(SqlText(QStringLiteral("select 房源ID from ") + rows)).rowCount();
}

void writeFollowUp(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("NavToolbar1_gj")); },
                      [&] {
                          tour.takePicture(QStringLiteral("follow-up-empty"));
                          person.type(contents);
                          person.click(QStringLiteral("Chk"));
                          const std::pair<QString, QString> texts[] = {
                              {QStringLiteral("qzTxt_3"), QStringLiteral("2026-12-1")},
                              {QStringLiteral("qzTxt_4"), QStringLiteral("本部")},
                              {QStringLiteral("qzTxt_5"), QStringLiteral("约业主面谈")},
                              {QStringLiteral("qzTxt_6"), QStringLiteral("已回电")}};
                          for (const auto &[field, text] : texts) {
                              person.focus(field);
                              person.type(text);
                          }
                          tour.takePicture(QStringLiteral("follow-up-filled"));
                          person.click(QStringLiteral("Cmd_0"));
                      });
}

void seeFollowUp(Tour &tour)
{
    const qsizetype found =
        stored(tour, QStringLiteral("fygj where 跟进内容='%1' and 下次提醒=1 and 提醒范围=1").arg(contents));
    tour.note(QStringLiteral("  跟进：%1").arg(found));
    Tour::expect(found == 1, QStringLiteral("跟进应已保存一条"));
}

void askForDeletion(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("NavToolbar1_delete")); },
                      [&] {
                          tour.takePicture(QStringLiteral("delete-question"));
                          person.press(Qt::Key_Escape);
                      });
}

void seeNothingDeleted(Tour &tour)
{
    const int shown = tour.person().see<QTableView>(QStringLiteral("VS")).model()->rowCount();
    Tour::expect(shown == stored(tour, QStringLiteral("fyxx")), QStringLiteral("不同意时不应删除房源"));
}

constexpr TourStep steps[] = {
    {u"写跟进", u"follow-up", writeFollowUp, seeFollowUp},
    {u"删除前询问", u"delete-refused", askForDeletion, seeNothingDeleted},
};

} // namespace

std::span<const TourStep> actionSteps()
{
    return steps;
}

} // namespace ebtq::shell
