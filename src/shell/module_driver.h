#pragma once

#include "contracts/host_contracts.h"
#include "host/followups/reminders.h"

#include <QObject>

#include <functional>

class QVBoxLayout;
class QWidget;

namespace ebtq::shell {

class ModuleEvents;

/// A module on the screen and what belongs to it; all of it outlives the module's driver.
struct DrivenModule
{
    QObject &module;
    ModuleEvents &events;
    QWidget &view;
    QVBoxLayout &column; ///< where the view stands
    const host::ModuleEntry &entry;
    HostApp &app;
};

/// Drives a module by its contract, from Init to Clear, and gives it the program's commands. What an
/// operation throws comes out as `failed`.
class ModuleDriver : public QObject
{
    Q_OBJECT

public:
    /// What the module itself answers; throws what it throws.
    bool initialise();
    /// The first load, with the layout that the person left; the commands are there from now on.
    virtual void begin() = 0;
    virtual void refresh() = 0;
    /// Makes the record with this key current; false when there is none.
    virtual bool showRecord(const QString &) { return false; }
    /// For the status line, as long as the module says nothing.
    [[nodiscard]] virtual QString status() const { return {}; }
    /// How many records are shown; empty where that is not known.
    [[nodiscard]] virtual QString count() const { return {}; }
    /// A record is being written, and mayLeave() may ask.
    [[nodiscard]] virtual bool isEditing() const { return false; }
    /// Whether the person may turn to something else: what was typed is saved or given up, as he answers.
    virtual bool mayLeave() { return true; }
    /// Keeps the layout and ends the module.
    void end();

Q_SIGNALS:
    /// status() has changed; with `isNew` what the module said is past.
    void statusChanged(bool isNew);
    void refused(const QString &text);
    void failed(const QString &text);
    void closeWanted();
    void sourceWanted(const ebtq::host::FollowUpSource &source);

protected:
    bool guarded(const std::function<void()> &call);
    virtual bool init() = 0;
    virtual void saveLayout() = 0;
    virtual void clear() = 0;

private:
    bool m_isReady = false;
};

} // namespace ebtq::shell
