#pragma once

#include "library/controls/control.h"

#include <vector>

namespace ebtq {

/// A tool bar of keyed buttons and separators.
class NavToolbar : public Control
{
    Q_OBJECT

public:
    struct Item
    {
        QString key;     ///< empty for a separator
        QString caption; ///< also the button's mnemonic source
        QString icon;    ///< icon name of the theme; may be empty
        bool enabled = true;
        bool visible = true;
    };

    explicit NavToolbar(const QString &name, int index = -1);
    void setItems(std::vector<Item> items);
    [[nodiscard]] const std::vector<Item> &items() const { return m_items; }
    [[nodiscard]] bool isEnabled(const QString &key) const;
    void setEnabled(const QString &key, bool enabled);
    using Control::setEnabled;
    /// What a view calls; nothing for a disabled or unknown button.
    void press(const QString &key);

Q_SIGNALS:
    void ButtonClick(const QString &key);

private:
    [[nodiscard]] const Item *find(const QString &key) const;
    std::vector<Item> m_items;
};

} // namespace ebtq
