#pragma once

#include "shell/module_driver.h"

#include <memory>

class QAbstractItemModel;

namespace ebtq::shell {

class ListCommands;

/// Drives a list module; one without a tool bar of its own gets the program's commands.
class ListDriver : public ModuleDriver
{
    Q_OBJECT

public:
    ListDriver(IReportUI &report, const DrivenModule &driven);
    ~ListDriver() override;

    void begin() override;
    void refresh() override;
    bool showRecord(const QString &key) override;
    /// How many rows the list shows.
    [[nodiscard]] QString count() const override;

protected:
    bool init() override;
    void saveLayout() override;
    void clear() override;

private:
    void followRows();
    void addCommands();
    void addFollowUpCommands();
    void restoreLayout();
    void showFirstTab();
    [[nodiscard]] QString layoutFile() const;

    IReportUI &m_report;
    DrivenModule m_driven;
    std::unique_ptr<ListCommands> m_commands;
    QAbstractItemModel *m_rows = nullptr; ///< of the module's grid in its view
    bool m_restoring = false;
};

} // namespace ebtq::shell
