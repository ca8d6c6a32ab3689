#pragma once

#include "contracts/host_contracts.h"
#include "library/controls/control_collection.h"

#include <QObject>
#include <QString>

#include <exception>

namespace ebtq {

class Desktop;

/// Title of messages that belong to the application rather than to one module.
[[nodiscard]] QString applicationTitle();

/// How a module reports failures.
struct FailureNames
{
    QString prefix; ///< text before the operation's tag
    QString title;
    /// Whether a failed statement is reported with prefix and tag as well; else in the database's own words.
    bool tagsStatements = false;
};

/// What all modules share: their controls, the designer's contract, the host from Init to Clear, and the one
/// trap around each public operation.
class Module : public QObject, public IDesignUI
{
    Q_OBJECT
    Q_INTERFACES(ebtq::IDesignUI)
    Q_PROPERTY(int BackColor READ BackColor WRITE setBackColor NOTIFY backColorChanged)

public:
    /// `desktop` outlives the module. Without `failures` a failure is reported under the module's name and
    /// the application's title.
    Module(const QString &name, Desktop &desktop);
    Module(QString name, Desktop &desktop, FailureNames failures);
    ~Module() override;

    [[nodiscard]] const QString &name() const { return m_name; }
    [[nodiscard]] Desktop &desktop() const { return m_desktop; }
    /// A colour number, red in its lowest byte; -1 for the desktop's own background.
    [[nodiscard]] int BackColor() const { return m_backColor; }
    void setBackColor(int color);

    /// The state of all controls from and into a layout file (see form_status.h); false when it could not be
    /// written.
    void sbGetFormStatus(const QString &pFile, bool pbOnlyColWidth);
    bool sbSaveFormStatus(const QString &pFile, bool pbOnlyColWidth) const;

    ControlCollection &IDesignUI_Controls() override { return m_controls; }
    QVariant IDesignUI_Parameters() override { return {}; }
    void IDesignUI_Parameters(DesignParameters *parameters) override;

Q_SIGNALS:
    void backColorChanged();

protected:
    [[nodiscard]] ControlCollection &controls() { return m_controls; }
    /// Throws Failure outside of Init ... Clear: a call out of order ends in a message.
    [[nodiscard]] HostApp &app() const;
    void setApp(HostApp *app) { m_app = app; }
    /// Raises the event ErrMessage, which each module declares in its own place among its events.
    virtual void raiseError(const QString &message, int level, const QString &title) = 0;
    /// The text of a trapped failure: prefix, the operation's tag, the description.
    [[nodiscard]] virtual QString trappedText(QStringView tag, const QString &description) const;

    /// Runs the body of an operation; its result, or false when it throws. What it throws is raised as
    /// ErrMessage, level 8 (see FailureNames). HostDb.Release is called last in either case.
    template<class Body> bool trapped(QStringView tag, Body body)
    {
        const bool result = trappedWithoutDatabase(tag, body);
        releaseDatabase();
        return result;
    }
    /// The same for what works on loaded rows alone. It may come from a timer in the middle of a save, whose
    /// transaction Release would roll back.
    template<class Body> bool trappedWithoutDatabase(QStringView tag, Body body)
    {
        try {
            return body();
        } catch (const std::exception &failure) {
            reportTrapped(tag, failure);
        }
        return false;
    }

    /// HostDb.Release; nothing outside of Init ... Clear.
    void releaseDatabase();

private:
    friend class ModulePart;
    void reportTrapped(QStringView tag, const std::exception &failure);
    [[nodiscard]] QString failureText(QStringView tag, const std::exception &failure) const;

    QString m_name;
    FailureNames m_failures;
    Desktop &m_desktop;
    ControlCollection m_controls;
    HostApp *m_app = nullptr;
    QString m_layoutFile; ///< the host's layout file of this screen; empty until the host gives it
    int m_backColor = -1;
};

} // namespace ebtq
