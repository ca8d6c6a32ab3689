#pragma once

#include "contracts/host_contracts.h"
#include "database/connection.h"
#include "host/host_session.h"
#include "host/panel_presenter.h"
#include "host/users.h"

#include <QDate>
#include <QString>

#include <functional>
#include <memory>

namespace ebtq::host {

/// Makes a picker of the component library, initialised; nullptr when it has none of that name.
using PickerFactory = std::function<std::unique_ptr<HostPicker>(const QString &name)>;

/// The host objects of one session over one database.
class Application : public HostApp
{
public:
    /// `connection` and `presenter` outlive the application. Throws Failure when the working folder cannot be
    /// made.
    Application(db::Connection &connection, User user, Settings settings, PanelPresenter &presenter);
    ~Application() override;

    [[nodiscard]] const User &user() const;
    /// Pickers beside the host's own; asked first.
    void setPickerFactory(PickerFactory factory);
    /// The print engine of the program, which a list asks for the contract PrintObject; without one, printing
    /// fails with a message.
    void setPrintContext(QObject *context);
    /// Called with each form that is about to be shown; the shell gives it its look.
    void setFormStyler(std::function<void(QObject &)> apply);
    /// Called with the text of each failed help list, picker and check: the modules that ask for them have
    /// nowhere to show it. The text is LastError's too.
    void setFailureReport(std::function<void(const QString &)> report);

    /// Called with the name of each table that a statement of this session has changed, as soon as that is
    /// committed.
    void setChangeReport(std::function<void(const QString &table)> report);

    HostDb &Db() override;
    HostPrintEnv &PrintEnv() override;
    [[nodiscard]] HostErrorInfo LastError() const override;
    /// Throws db::DatabaseError, as the two parameters do.
    std::unique_ptr<HostRights> Rights(int moduleId) override;
    HostParameter SystemParameter(int group, const QVariant &key) override;
    /// The user's own value, else the system's.
    HostParameter UserParameter(int group, const QVariant &key) override;
    bool ShowHelp(const QString &key, const QVariant &field, const QVariant &left, const QVariant &top,
                  int flag) override;
    bool JudgeText(const QString &base, const QString &valueField, const QString &textField,
                   const QString &typedText, QVariant &value, QString &text) override;
    bool NewBillCode(int moduleId, const QDate &date, QString &code, bool take) override;
    HostSession &Session() override;
    HostPicker &Picker(const QString &name) override;
    HostFormStyler &FormStyler() override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace ebtq::host
