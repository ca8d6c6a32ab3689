#include "library/controls/tab_strip.h"

using namespace Qt::StringLiterals;

namespace ebtq {

qzVSTabCtl::qzVSTabCtl(const QString &name, int index)
    : Control(u"qzVSTabCtl"_s, name, index)
{}

void qzVSTabCtl::setTabs(std::vector<Tab> tabs, int activeTab)
{
    m_tabs = std::move(tabs);
    m_activeTab = hasTab(activeTab) ? activeTab : 0;
    Q_EMIT stateChanged();
}

void qzVSTabCtl::setTabCaption(int tab, const QString &caption)
{
    QString &present = m_tabs.at(static_cast<size_t>(tab) - 1).caption;
    if (present == caption)
        return;
    present = caption;
    Q_EMIT stateChanged();
}

void qzVSTabCtl::setActiveTab(int tab)
{
    if (tab == m_activeTab || !hasTab(tab))
        return;
    if (m_activeTab != 0)
        Q_EMIT TabLeft(m_activeTab);
    m_activeTab = tab;
    Q_EMIT TabEntered(tab);
}

} // namespace ebtq
