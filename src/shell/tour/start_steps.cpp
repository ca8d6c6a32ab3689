#include "shell/tour/start_steps.h"

#include "host/start/agency.h"
#include "shell/start/start_wizard.h"
#include "shell/tour/tour.h"

#include <QLabel>
#include <QTemporaryDir>

namespace ebtq::shell {

namespace {

const QString nextButton = QStringLiteral("next");

void fillAgency(Tour &tour)
{
    Person &person = tour.person();
    person.fill(QStringLiteral("name"), QStringLiteral("望澜房产"));
    tour.takePicture(QStringLiteral("start-agency"));
    person.click(nextButton);
    person.fill(QStringLiteral("administrator"), QStringLiteral("梁佳宁"));
    person.fill(QStringLiteral("password"), QStringLiteral("secret-12"));
    person.fill(QStringLiteral("again"), QStringLiteral("secret-13"));
    person.click(nextButton);
    tour.takePicture(QStringLiteral("start-refused"));
    Tour::expect(person.see<QLabel>(QStringLiteral("error")).text().contains(QStringLiteral("两次")),
                 QStringLiteral("两次密码不同应被拒绝"));
    person.fill(QStringLiteral("again"), QStringLiteral("secret-12"));
    person.click(nextButton);
}

void fillDistricts(Tour &tour)
{
    Person &person = tour.person();
    person.focus(QStringLiteral("districts"));
    for (const QString &line : QStringLiteral("云泽市|  望澜区|    柳岸|    锦堤|  锦溪区").split(u'|')) {
        person.type(line);
        person.press(Qt::Key_Return);
    }
    tour.takePicture(QStringLiteral("start-districts"));
    person.click(nextButton);
    tour.takePicture(QStringLiteral("start-lists"));
    person.click(nextButton);
}

void walkThrough(Tour &tour)
{
    Person &person = tour.person();
    tour.takePicture(QStringLiteral("start-choice"));
    person.click(QStringLiteral("server"));
    person.click(nextButton);
    tour.takePicture(QStringLiteral("start-server"));
    person.click(QStringLiteral("back"));
    person.click(QStringLiteral("newAgency"));
    person.click(nextButton);
    fillAgency(tour);
    fillDistricts(tour);
    tour.takePicture(QStringLiteral("start-summary"));
    person.click(QStringLiteral("finish"));
}

void startAnAgency(Tour &tour)
{
    const QTemporaryDir folder;
    StartWizard wizard(folder.path(), {QStringLiteral("postgresql://agency@server/agency")});
    tour.person().withDialog([&] { wizard.exec(); }, [&] { walkThrough(tour); });
    Tour::expect(wizard.result() == QDialog::Accepted, QStringLiteral("新机构应已建立"));
    const auto connection = db::Connection::open(wizard.draft().location());
    const RowBlock districts =
        connection->query(SqlText(QStringLiteral("select 地区 from pdmdq order by 编码")));
    tour.district = districts.value(2, 0).toString();
    tour.note(QStringLiteral("  %1，%2 个地区").arg(host::agencyName(*connection)).arg(districts.rowCount()));
}

void seeAgency(Tour &tour)
{
    Tour::expect(tour.district == u"柳岸", QStringLiteral("新机构应有键入的地区"));
}

constexpr TourStep steps[] = {
    {u"首次启动：建立新机构", u"start-done", startAnAgency, seeAgency},
};

} // namespace

std::span<const TourStep> startSteps()
{
    return steps;
}

} // namespace ebtq::shell
