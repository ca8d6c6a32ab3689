#pragma once

#include "library/frame/module.h"
#include "library/lists/list_module.h"
#include "screens/controls/grid_menu.h"
#include "screens/look/look.h"

#include <QColor>
#include <QWidget>

#include <span>
#include <string_view>

class QVBoxLayout;

namespace ebtq {

class FlexGridView;
class FilterBar;
class NavToolbar;
class ToolBarView;

/// How a list looks. All of it is constant.
struct ListLook
{
    struct Field
    {
        int number;
        int characters; ///< width of its text in Chinese characters
        char16_t key;   ///< its letter with Alt
    };
    struct Column
    {
        int number;
        QColor look::Tokens::*ink;
    };

    std::span<const Field> fields = {};   ///< of the filter, in reading order
    std::u16string_view kindKeys = u"SZ"; ///< letters of the two boxes
    char16_t periodKey = u'Q';
    std::span<const Column> columns = {}; ///< those with an ink of their own
    bool isFoundByHost = false;           ///< Ctrl+F is the host's, whose find bar also steps backwards
    QStringView emptyHint;                ///< of a load that found nothing
};

/// The screen of a list module: its filter row and the list, one below the other in a column to which its
/// class adds the rest. A filter that was chosen, ticked or confirmed with Enter loads the list again. What
/// the host does with the list it adds as actions of this view; they stand in the list's menu.
class ListView : public QWidget
{
    Q_OBJECT

protected:
    ListView(ListModule &module, const ListLook &look, QWidget *parent);

    /// The list's menu and what the events say of a load. A Module has the events of a list module.
    template<class Module> void follow(Module &module, GridMenu *menu)
    {
        // "Nothing found" is said of a load that worked, never of a list that a failure left empty.
        connect(&module, &Module::RefreshGetGridStatus, this, [this] { showOutcome(true); });
        connect(&module, &Module::ErrMessage, this, [this] { showOutcome(false); });
        connect(menu, &GridMenu::message, &module, &Module::Message);
        connect(menu, &GridMenu::failed, &module, [&module](const QString &text) {
            Q_EMIT module.ErrMessage(text, FailureLevel, applicationTitle());
        });
    }
    void addFilterRow();
    /// The list itself, which the class puts into its place: made behind what the keyboard reaches before it.
    [[nodiscard]] FlexGridView *makeGrid();
    /// The commands stand in a tool bar of the list's own, which may be none.
    [[nodiscard]] GridMenu *makeMenu(NavToolbar *commands = nullptr, ToolBarView *toolBar = nullptr);
    [[nodiscard]] QVBoxLayout *column() const;

    /// Loads the list when the field that is being filled in allows it.
    virtual void refresh();
    /// The keys of the program that this view answers by itself.
    [[nodiscard]] virtual bool isOwnKey(int key) const;
    virtual void ownKeyPressed(int key);

    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override; ///< the keyboard begins in the list
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addFields(FilterBar &bar);
    void addKey(FilterBar &bar, QWidget &field, char16_t letter);
    void addPeriods(FilterBar &bar);
    void addKinds(FilterBar &bar);
    void addSearch(FilterBar &bar);
    void showOutcome(bool done);

    ListModule &m_module;
    const ListLook m_look;
    FlexGridView *m_grid = nullptr;
};

} // namespace ebtq
