#pragma once

#include "library/controls/control.h"

#include <vector>

namespace ebtq {

/// A strip of tabs, numbered from 1. The panels belong to its owner, which follows its two events.
class qzVSTabCtl : public Control
{
    Q_OBJECT
    Q_PROPERTY(int ActiveTab READ ActiveTab WRITE setActiveTab NOTIFY TabEntered)

public:
    struct Tab
    {
        QString caption;
        QString key;
    };

    explicit qzVSTabCtl(const QString &name, int index = -1);
    /// The tabs and the initially active one, which raises no event.
    void setTabs(std::vector<Tab> tabs, int activeTab);
    [[nodiscard]] const std::vector<Tab> &tabs() const { return m_tabs; }
    void setTabCaption(int tab, const QString &caption);
    /// 0 while there are no tabs.
    [[nodiscard]] int ActiveTab() const { return m_activeTab; }
    /// Nothing for the active tab and for a number without a tab.
    void setActiveTab(int tab);

Q_SIGNALS:
    /// Raised before the active tab changes.
    void TabLeft(int tab);
    void TabEntered(int tab);

private:
    [[nodiscard]] bool hasTab(int tab) const { return tab >= 1 && tab <= static_cast<int>(m_tabs.size()); }

    std::vector<Tab> m_tabs;
    int m_activeTab = 0;
};

} // namespace ebtq
