#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QWidget;

namespace ebtq {

class Desktop;
class FlexGridView;
class NavToolbar;
class PassingMenu;
class ShownGrid;
class ToolBarView;
class VSFlexGrid;

/// The context menu of a list: the commands of its tool bar, in the state that they have there, the actions
/// of its page, which a host adds, and what any list offers: copying the chosen rows, exporting and printing
/// what is shown. It makes contiguous rows selectable by Shift; the current row is one of them. The header
/// has a separate menu.
class GridMenu : public QObject
{
    Q_OBJECT

public:
    /// Everything outlives the menu, which belongs to the view.
    GridMenu(FlexGridView &view, VSFlexGrid &grid, QWidget &page, Desktop &desktop);

    void setCommands(NavToolbar &commands, ToolBarView &toolBar);

    /// What the list is called: in the names of exported files.
    void setListName(const QString &name) { m_listName = name; }
    /// The list's own print operation; without one, printing is not offered.
    void setPrint(std::function<void(bool bPrint, bool bSetup)> print);

Q_SIGNALS:
    /// What was done, for the status line.
    void message(const QString &text);
    void failed(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addShortcuts();
    void popUp(const QPoint &place);
    void addCommands(PassingMenu &menu);
    void addPageActions(PassingMenu &menu);
    void addExport(PassingMenu &menu);
    void addPrint(PassingMenu &menu);
    [[nodiscard]] QPoint placeOfCurrentRow() const;
    void copy();
    struct Format;
    void exportAs(const Format &format);
    [[nodiscard]] bool write(const Format &format, const ShownGrid &table, const QString &path) const;

    FlexGridView &m_view;
    VSFlexGrid &m_grid;
    QWidget &m_page;
    Desktop &m_desktop;
    NavToolbar *m_commands = nullptr;
    ToolBarView *m_toolBar = nullptr; ///< where they stand
    QString m_listName;
    QString m_folder; ///< where the last export went
    std::function<void(bool bPrint, bool bSetup)> m_print;
};

} // namespace ebtq
