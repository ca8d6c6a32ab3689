#include "library/controls/nav_toolbar.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

NavToolbar::NavToolbar(const QString &name, int index)
    : Control(u"NavToolbar"_s, name, index)
{}

void NavToolbar::setItems(std::vector<Item> items)
{
    m_items = std::move(items);
    Q_EMIT stateChanged();
}

const NavToolbar::Item *NavToolbar::find(const QString &key) const
{
    const auto found = std::ranges::find_if(m_items, [&](const Item &item) {
        return !item.key.isEmpty() && item.key.compare(key, Qt::CaseInsensitive) == 0;
    });
    return found == m_items.end() ? nullptr : &*found;
}

bool NavToolbar::isEnabled(const QString &key) const
{
    const Item *item = find(key);
    return item && item->enabled;
}

void NavToolbar::setEnabled(const QString &key, bool enabled)
{
    const Item *item = find(key);
    if (!item || item->enabled == enabled)
        return;
    m_items[static_cast<size_t>(item - m_items.data())].enabled = enabled;
    Q_EMIT stateChanged();
}

void NavToolbar::press(const QString &key)
{
    const Item *item = find(key);
    if (item && item->enabled && item->visible && Enabled())
        Q_EMIT ButtonClick(item->key);
}

} // namespace ebtq
