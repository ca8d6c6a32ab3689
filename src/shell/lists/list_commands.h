#pragma once

#include "contracts/host_contracts.h"
#include "shell/command_bar.h"

#include <QPointer>

namespace ebtq::shell {

class FindBar;

/// The commands of a list module that has no tool bar of its own, and a find bar below its view.
class ListCommands : public CommandBar
{
    Q_OBJECT

public:
    /// `module` and `view` outlive it; `column` is where the view stands.
    ListCommands(IReportUI &module, QWidget &view, QVBoxLayout &column);
    ~ListCommands() override;

    /// Those that all lists have, behind what was added before.
    void addCommon();
    /// The rows have been loaded anew: hides those that the find bar leaves out.
    void rowsLoaded();

Q_SIGNALS:
    /// The view does not refresh the list itself.
    void refreshWanted();
    void closeWanted();
    /// What was told of the search is past.
    void findLeft();

private:
    void addFind();
    void addPrint();
    void refresh();
    void openFindBar(bool filters);
    void find(int direction);
    void findAgain(int direction);

    IReportUI &m_module;
    QPointer<FindBar> m_findBar; ///< a child of the page
    QString m_soughtText;        ///< by the module's last search
    int m_soughtDirection = 0;
};

} // namespace ebtq::shell
