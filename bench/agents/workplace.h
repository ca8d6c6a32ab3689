#pragma once

#include "agents/nobodys_desktop.h"
#include "host/application.h"
#include "host/panel_presenter.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace ebtq::bench {

/// An agent's machine: connection, host and working folder of its own, and himself in front of it: he does at
/// a form what he was told, says no to every question and reads every message.
class Workplace final : public NobodysDesktop, public host::PanelPresenter
{
public:
    struct Building
    {
        int id = 0;
        QString name;
        int districtId = 0;
        QString district;
    };

    /// The database holds an invented agency. Of those who may edit listings, each number gives one in turn.
    Workplace(const QString &database, int number);
    ~Workplace() override;

    [[nodiscard]] HostApp &app() { return *m_app; }
    [[nodiscard]] static int moduleId();
    [[nodiscard]] const QString &agentName() const { return m_user.name; }
    [[nodiscard]] int agentId() const { return m_agentId; }
    /// Where he knows his way about.
    [[nodiscard]] const Building &building() const { return m_building; }

    /// Is done at the next form that opens, which closes then.
    void atForm(std::function<void()> act) { m_act = std::move(act); }
    /// Everything that message boxes said since it was forgotten.
    [[nodiscard]] const QString &told() const { return m_told; }
    void forgetWhatWasTold() { m_told.clear(); }

    Answer messageBox(const QString &text, const QString &title, Icon icon, Buttons buttons) override;
    /// Colleagues work on the same listings: what they have changed is taken along.
    std::optional<int> choose(const QString &, const QString &, const QStringList &) override { return 0; }
    void showModal(QObject &form) override;
    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTime(); }
    QByteArray newGuidBytes() override;

    std::optional<qsizetype> choose(const host::Panel &) override { return std::nullopt; }
    std::optional<QDate> chooseDate(const QDate &, int, int) override { return std::nullopt; }

private:
    void readAgent(int number);
    void readBuilding(int number);

    QTemporaryDir m_folder;
    std::unique_ptr<db::Connection> m_connection;
    host::User m_user;
    int m_agentId = 0;
    Building m_building;
    std::unique_ptr<host::Application> m_app;
    std::function<void()> m_act;
    QString m_told;
};

} // namespace ebtq::bench
