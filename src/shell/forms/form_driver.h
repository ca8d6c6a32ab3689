#pragma once

#include "shell/command_bar.h"
#include "shell/module_driver.h"

#include <QSet>

#include <span>

class QLabel;

namespace ebtq::shell {

/// Drives a data-entry module with the program's commands. Whether a record is being written is known by the
/// module's answers to new, edit, save and cancel, and by its property "Editing" where it begins by itself;
/// nothing that would show another record is called until the record is saved or given up.
class FormDriver : public ModuleDriver
{
    Q_OBJECT

public:
    FormDriver(IFormUI &form, const DrivenModule &driven);
    ~FormDriver() override;

    void begin() override;
    void refresh() override;
    [[nodiscard]] QString status() const override { return m_done; }
    [[nodiscard]] bool isEditing() const override { return m_state != State::Browse; }
    bool mayLeave() override;
    /// Esc, where neither a field nor a message takes it.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    bool init() override;
    void saveLayout() override;
    void clear() override;

private:
    enum class State { Browse, New, Edit };
    struct Command;
    Q_SLOT void followModule();
    [[nodiscard]] static std::span<const Command> commands();

    void addCommand(const Command &command);
    void addState();
    void watchModule();
    void showState();
    void setState(State state);
    void follow();
    [[nodiscard]] bool isUsable(const Command &command) const;
    void readRights();
    [[nodiscard]] bool isAllowed(int right);
    void run(const Command &command);
    template<bool (IFormUI::*operation)()> void operate() { (m_form.*operation)(); }
    void say(const QString &done);

    void startNew();
    void startEdit();
    void save();
    void cancel();
    void remove();
    void find();
    void findNext();
    void close();
    [[nodiscard]] bool afterField(const std::function<bool(bool isAccepted)> &act);
    [[nodiscard]] bool endEditing(bool isFieldAccepted);
    [[nodiscard]] bool isSaved();

    IFormUI &m_form;
    DrivenModule m_driven;
    CommandBar m_bar;
    QLabel *m_stateLabel;
    State m_state = State::Browse;
    QSet<int> m_rights;
    QString m_done; ///< what the last command has done
    bool m_isLoaded = false;
    bool m_isFound = false; ///< a text to go on with
};

} // namespace ebtq::shell
