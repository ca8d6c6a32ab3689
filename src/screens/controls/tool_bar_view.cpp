#include "screens/controls/tool_bar_view.h"

#include "library/controls/nav_toolbar.h"
#include "screens/controls/control_binding.h"
#include "screens/look/look.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int separatorHeight = 22;

/// "刷新" reached by Alt+U is "刷新(U)", the letter underlined.
QString withMnemonic(const QString &caption, const QKeySequence &keys)
{
    const QString text = keys.toString(QKeySequence::PortableText);
    const bool isAltLetter = text.size() == 5 && text.startsWith(u"Alt+"_s);
    return isAltLetter ? u"%1(&%2)"_s.arg(caption, text.back()) : caption;
}

} // namespace

ToolBarView::ToolBarView(NavToolbar &toolBar, QWidget *parent)
    : QWidget(parent)
    , m_toolBar(toolBar)
{
    bindControl(toolBar, *this);
    setProperty("kind", u"bar"_s);
    setAttribute(Qt::WA_StyledBackground);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 12, 6);
    row->setSpacing(6);
    row->addStretch();
    connect(&toolBar, &Control::stateChanged, this, &ToolBarView::follow);
    follow();
}

void ToolBarView::setCurrentKey(const QString &key)
{
    m_currentKey = key;
    follow();
}

void ToolBarView::setShortcuts(QHash<QString, QKeySequence> shortcuts)
{
    m_shortcuts = std::move(shortcuts);
    follow();
}

bool ToolBarView::isBuiltFromItems() const
{
    return std::equal(m_parts.begin(), m_parts.end(), m_toolBar.items().begin(), m_toolBar.items().end(),
                      [](const Part &part, const NavToolbar::Item &item) { return part.key == item.key; });
}

void ToolBarView::follow()
{
    if (!isBuiltFromItems())
        rebuild();
    for (size_t at = 0; at < m_parts.size(); ++at) {
        QToolButton *button = m_parts[at].button;
        if (!button)
            continue;
        const NavToolbar::Item &item = m_toolBar.items()[at];
        const QKeySequence keys = m_shortcuts.value(item.key);
        button->setText(withMnemonic(item.caption, keys));
        button->setIcon(item.icon.isEmpty() ? QIcon() : look::icon(item.icon));
        button->setEnabled(item.enabled);
        button->setVisible(item.visible);
        button->setChecked(item.key == m_currentKey);
        button->setShortcut(keys);
        button->setToolTip(keys.isEmpty() ? item.caption : u"%1 (%2)"_s.arg(item.caption, keys.toString()));
    }
    showSeparators();
}

void ToolBarView::rebuild()
{
    for (const Part &part : m_parts)
        delete part.widget;
    m_parts.clear();
    for (const NavToolbar::Item &item : m_toolBar.items())
        item.key.isEmpty() ? addSeparator() : addButton(item.key);
}

void ToolBarView::addButton(const QString &key)
{
    auto *button = new QToolButton(this);
    button->setObjectName(m_toolBar.Name() + u'_' + key);
    button->setProperty("kind", u"flat"_s);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, [this, key] { press(key); });
    static_cast<QHBoxLayout *>(layout())->insertWidget(static_cast<int>(m_parts.size()), button);
    m_parts.push_back({key, button, button});
}

void ToolBarView::addSeparator()
{
    auto *line = new QFrame(this);
    line->setFrameShape(QFrame::VLine);
    line->setFixedHeight(separatorHeight);
    line->setProperty("kind", u"separator"_s);
    static_cast<QHBoxLayout *>(layout())->insertWidget(static_cast<int>(m_parts.size()), line);
    m_parts.push_back({QString(), line, nullptr});
}

void ToolBarView::showSeparators()
{
    bool buttonBefore = false;
    QWidget *separator = nullptr;
    for (const Part &part : m_parts) {
        if (!part.button) {
            part.widget->hide();
            separator = buttonBefore ? part.widget : nullptr;
            continue;
        }
        if (part.button->isHidden())
            continue;
        if (separator)
            separator->show();
        separator = nullptr;
        buttonBefore = true;
    }
}

/// The buttons are set right first: a click toggles one, though only the current key decides, and a command
/// may be the end of this screen.
void ToolBarView::press(const QString &key)
{
    follow();
    if (!m_guard || m_guard(key))
        m_toolBar.press(key);
}

} // namespace ebtq
