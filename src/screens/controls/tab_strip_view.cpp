#include "screens/controls/tab_strip_view.h"

#include "library/controls/tab_strip.h"
#include "screens/controls/control_binding.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

namespace ebtq {

TabStripView::TabStripView(qzVSTabCtl &strip, QWidget *keyScope, QWidget *parent)
    : QTabBar(parent)
    , m_strip(strip)
{
    bindControl(strip, *this);
    setDrawBase(false);
    setExpanding(false);
    for (int tab = 1; tab <= static_cast<int>(strip.tabs().size()); ++tab)
        addShortcut(tab, keyScope);
    connect(&strip, &Control::stateChanged, this, &TabStripView::follow);
    connect(&strip, &qzVSTabCtl::TabEntered, this, [this](int tab) { setCurrentIndex(tab - 1); });
    connect(this, &QTabBar::currentChanged, this, [this](int position) {
        if (!m_exchange.isFollowing())
            m_strip.setActiveTab(position + 1);
    });
    follow();
}

void TabStripView::addShortcut(int tab, QWidget *keyScope)
{
    const QKeySequence key(Qt::ALT | static_cast<Qt::Key>(Qt::Key_0 + tab));
    auto *shortcut = new QShortcut(key, keyScope);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, tab] { m_strip.setActiveTab(tab); });
}

void TabStripView::follow()
{
    const auto following = m_exchange.follow();
    const int tabs = static_cast<int>(m_strip.tabs().size());
    while (count() > tabs)
        removeTab(count() - 1);
    while (count() < tabs)
        addTab({});
    for (int position = 0; position < tabs; ++position) {
        setTabText(position, m_strip.tabs()[static_cast<size_t>(position)].caption);
        setTabToolTip(position, u"Alt+%1"_s.arg(position + 1));
    }
    setCurrentIndex(m_strip.ActiveTab() - 1);
}

} // namespace ebtq
