#pragma once

#include "host/module_ids.h"

#include <QWidget>

#include <vector>

class QLabel;
class QToolButton;

namespace ebtq::shell {

/// The dark column at the left: the modules that the component library has, in groups. Up and Down move
/// between the entries, Enter and a click open one. Collapsed it shows the icons alone.
class Navigation : public QWidget
{
    Q_OBJECT

public:
    /// `classNames` are those of the component library; an entry whose class is not among them is not shown.
    explicit Navigation(const QStringList &classNames, QWidget *parent = nullptr);

    /// What the button of a module's entry is called.
    [[nodiscard]] static QString entryName(host::ModuleId module);

    /// A button that hides and shows the whole column, also pressed by Ctrl+B.
    [[nodiscard]] QToolButton *makeFoldButton();
    void setCollapsed(bool collapsed);
    [[nodiscard]] bool isCollapsed() const { return m_collapsed; }
    [[nodiscard]] QSize sizeHint() const override;
    /// Marks the module that is shown.
    void setCurrent(host::ModuleId module);
    void clearCurrent();
    /// A number behind the module's name, or at its icon; 0 for none.
    void setCount(host::ModuleId module, int count);
    /// Gives the keyboard to the current entry, else to the first.
    void focusEntry();
    /// The modules shown, in order.
    [[nodiscard]] std::vector<host::ModuleId> modules() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void opened(ebtq::host::ModuleId module);

private:
    struct Entry
    {
        host::ModuleId module;
        QToolButton *button;
        QLabel *count; ///< at the icon
    };
    void addGroup(const QString &caption);
    void addEntry(const host::ModuleEntry &module, const QString &icon);
    void showCounts();
    void moveFocus(QObject *from, int step);

    bool m_collapsed = false;
    QLabel *m_title;
    std::vector<QLabel *> m_groups;
    std::vector<Entry> m_entries;
};

} // namespace ebtq::shell
