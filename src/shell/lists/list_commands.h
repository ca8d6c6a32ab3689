#pragma once

#include "contracts/host_contracts.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class QAction;
class QHBoxLayout;
class QVBoxLayout;

namespace ebtq::shell {

class FindBar;

/// The commands of a list module that has no tool bar of its own: a bar above its view, and a find bar below
/// it. They are actions of the view, too, whose menu shows them.
class ListCommands : public QWidget
{
    Q_OBJECT

public:
    /// `module` and `view` outlive it; `column` is where the view stands.
    ListCommands(IReportUI &module, QWidget &view, QVBoxLayout &column);
    ~ListCommands() override;

    /// A command of the page's own, before the common ones; its text may hold a mnemonic.
    QAction &add(const QString &name, const QString &icon, const QString &text, std::function<void()> run);
    /// The common ones, behind those.
    void addCommon();
    /// The rows have been loaded anew: hides those that the find bar leaves out.
    void rowsLoaded();

Q_SIGNALS:
    /// The view does not refresh the list itself.
    void refreshWanted();
    void closeWanted();
    /// What was told of the search is past.
    void findLeft();
    /// What an operation of the module threw.
    void failed(const QString &text);

private:
    void addButton(QAction &action);
    void addSeparator();
    void refresh();
    void openFindBar(bool filters);
    void find(int direction);
    void findAgain(int direction);
    template<class Operation> void run(Operation operation);

    IReportUI &m_module;
    QWidget &m_view;
    QPointer<FindBar> m_findBar; ///< a child of the page
    QHBoxLayout *m_row;
    QString m_soughtText; ///< by the module's last search
    int m_soughtDirection = 0;
};

} // namespace ebtq::shell
