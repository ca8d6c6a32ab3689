#pragma once

#include "database/connection.h"
#include "host/panel_presenter.h"
#include "library/frame/host_contracts.h"

#include <QDate>
#include <QString>

#include <functional>
#include <memory>

namespace ebtq::host {

/// What the program around the host decides.
struct Settings
{
    QString appPath;  ///< working folder below the user's data directory; made when missing
    QDate loginDate;  ///< business date of the session
};

/// Who signed in.
struct User
{
    QString id; ///< GUID text without braces
    QString name;
    QString department; ///< empty when in none
};

/// Makes a picker of the component library, initialised; nullptr when it has none of that name.
using PickerFactory = std::function<std::unique_ptr<HostPicker>(const QString &name)>;

/// The user whose name and password match. Throws Failure with a text for the user otherwise; the text does not
/// tell whether the name or the password was wrong.
[[nodiscard]] User signIn(db::Connection &connection, const QString &name, const QString &password);

/// The host objects of one session over one database.
class Application : public HostApp
{
public:
    /// `connection` and `presenter` outlive the application.
    Application(db::Connection &connection, User user, Settings settings, PanelPresenter &presenter);
    ~Application() override;

    [[nodiscard]] const User &user() const;
    /// Pickers beside the host's own; asked first.
    void setPickerFactory(PickerFactory factory);
    /// Called with each form that is about to be shown; the shell gives it its look.
    void setFormStyler(std::function<void(QObject &)> apply);

    HostDb &Db() override;
    HostPrintEnv &PrintEnv() override;
    [[nodiscard]] HostErrorInfo LastError() const override;
    std::unique_ptr<HostRights> Rights(int moduleId) override;
    HostParameter SystemParameter(int group, const QVariant &key) override;
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
