#pragma once

#include "component/component_library.h"
#include "contracts/host_contracts.h"
#include "host/followups/reminders.h"

#include <QWidget>

#include <memory>

namespace ebtq::shell {

class ModuleDriver;
class ModuleEvents;

/// One module of the component library on the screen, from its making to its end; its driver knows the
/// contract. Whatever goes wrong inside comes out as `errMessage`.
class ModulePage : public QWidget
{
    Q_OBJECT

public:
    /// `library` and `app` outlive the page. Nothing of the module is made before open().
    ModulePage(ComponentLibrary &library, const host::ModuleEntry &entry, HostApp &app,
               QWidget *parent = nullptr);
    /// Shuts the module.
    ~ModulePage() override;

    [[nodiscard]] host::ModuleId module() const { return m_entry.id; }
    /// Makes module and view, initialises the module, restores its layout and loads it. False when there is
    /// nothing to be shown or the module could not be initialised; one whose first load failed is shown with
    /// what it has.
    bool open();
    /// The module's last message.
    [[nodiscard]] QString status() const;
    /// How many records it shows.
    [[nodiscard]] QString count() const;
    /// Loads the module again.
    void refresh();
    /// Makes the record with this key current; false when the list has none.
    bool showRecord(const QString &key);
    [[nodiscard]] bool isEditing() const;
    /// Whether the person may turn to something else; asks him when something typed is not saved.
    bool mayLeave();
    /// Saves the layout and ends the module: the view first, since it looks at the module. May be called
    /// again.
    void shut();

Q_SIGNALS:
    /// status(), count() or isEditing() has changed.
    void message();
    void errMessage(const QString &text, int level, const QString &title);
    /// The module asks to be closed; sent after its operation has returned.
    void closeRequested();
    /// The person wants to see the record that a follow-up was written on.
    void sourceWanted(const ebtq::host::FollowUpSource &source);

private:
    void make();
    [[nodiscard]] std::unique_ptr<ModuleDriver> makeDriver();
    void bindEvents();
    void bindDriver();
    void setStatus(const QString &text);
    void fail(const QString &text);

    ComponentLibrary &m_library;
    const host::ModuleEntry &m_entry;
    HostApp &m_app;
    std::unique_ptr<QObject> m_module;
    std::unique_ptr<ModuleEvents> m_events;
    std::unique_ptr<QWidget> m_view;
    std::unique_ptr<ModuleDriver> m_driver;
    QString m_status;
};

} // namespace ebtq::shell
