#include "shell/navigation.h"

#include "screens/look/look.h"
#include "shell/module_catalog.h"

#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace ebtq::shell {

namespace {

constexpr int fullWidth = 168;
constexpr int collapsedWidth = 54;
constexpr int margin = 8;

void name(QToolButton &button, const QString &text)
{
    button.setText(u' ' + text); // else the text touches the icon
    button.setToolTip(text);
    button.setAccessibleName(text);
}

} // namespace

Navigation::Navigation(const QStringList &classNames, QWidget *parent)
    : QWidget(parent)
    , m_title(new QLabel(QStringLiteral("房源管理")))
{
    setObjectName(QStringLiteral("Navigation"));
    setProperty("kind", QStringLiteral("navigation"));
    setAttribute(Qt::WA_StyledBackground);
    m_title->setProperty("kind", QStringLiteral("navTitle"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(2);
    column->addWidget(m_title);
    QStringView group;
    for (const NavigationEntry &entry : navigationEntries()) {
        const host::ModuleEntry &module = moduleEntry(entry.module);
        if (!classNames.contains(module.className))
            continue;
        if (entry.group != group)
            addGroup(entry.group.toString());
        group = entry.group;
        addEntry(module, entry.icon.toString());
    }
    column->addStretch();
    setMinimumWidth(collapsedWidth); // else the window could never become narrow enough to collapse it
    setCollapsed(false);
}

QString Navigation::entryName(host::ModuleId module)
{
    return QStringLiteral("Navigation_%1").arg(static_cast<int>(module));
}

void Navigation::addGroup(const QString &caption)
{
    auto *label = new QLabel(caption);
    label->setProperty("kind", QStringLiteral("navGroup"));
    layout()->addWidget(label);
    m_groups.push_back(label);
}

void Navigation::addEntry(const host::ModuleEntry &module, const QString &icon)
{
    auto *button = new QToolButton;
    button->setProperty("kind", QStringLiteral("nav"));
    button->setObjectName(entryName(module.id));
    name(*button, module.caption.toString());
    button->setIcon(look::icon(icon, &look::Tokens::navigationInk));
    button->setCheckable(true);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setFocusPolicy(Qt::StrongFocus);
    button->installEventFilter(this);
    layout()->addWidget(button);
    auto *count = new QLabel(button);
    count->setProperty("kind", QStringLiteral("badge"));
    count->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_entries.push_back({module.id, button, count});
    connect(button, &QToolButton::clicked, this, [this, id = module.id, button] {
        button->setChecked(!button->isChecked()); // the tabs decide which entry is marked
        Q_EMIT opened(id);
    });
}

QToolButton *Navigation::makeFoldButton()
{
    auto *button = new QToolButton;
    button->setObjectName(QStringLiteral("FoldNavigation"));
    button->setIcon(look::icon(QStringLiteral("sidebar-collapse-left"), &look::Tokens::muted));
    button->setToolTip(QStringLiteral("显示或隐藏导航 (Ctrl+B)"));
    button->setAccessibleName(QStringLiteral("显示或隐藏导航"));
    button->setShortcut(Qt::CTRL | Qt::Key_B);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this, [this] { setVisible(isHidden()); });
    return button;
}

void Navigation::setCollapsed(bool collapsed)
{
    m_collapsed = collapsed;
    setMaximumWidth(collapsed ? collapsedWidth : fullWidth);
    updateGeometry();
    m_title->setVisible(!collapsed);
    for (QLabel *group : m_groups)
        group->setVisible(!collapsed);
    for (const Entry &entry : m_entries)
        entry.button->setToolButtonStyle(collapsed ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    showCounts();
}

void Navigation::showCounts()
{
    for (const Entry &entry : m_entries) {
        entry.count->setVisible(m_collapsed && !entry.count->text().isEmpty());
        entry.count->adjustSize();
        entry.count->move(collapsedWidth - 2 * margin - entry.count->width(), 0);
    }
}

QSize Navigation::sizeHint() const
{
    return {maximumWidth(), QWidget::sizeHint().height()};
}

void Navigation::setCurrent(host::ModuleId module)
{
    for (const Entry &entry : m_entries)
        entry.button->setChecked(entry.module == module);
}

void Navigation::clearCurrent()
{
    for (const Entry &entry : m_entries)
        entry.button->setChecked(false);
}

void Navigation::setCount(host::ModuleId module, int count)
{
    QString text = moduleEntry(module).caption.toString();
    if (count > 0)
        text += QStringLiteral(" (%1)").arg(count);
    for (const Entry &entry : m_entries) {
        if (entry.module != module)
            continue;
        name(*entry.button, text);
        entry.count->setText(count > 0 ? QString::number(count) : QString());
    }
    showCounts();
}

void Navigation::focusEntry()
{
    if (m_entries.empty())
        return;
    const auto current =
        std::ranges::find_if(m_entries, [](const Entry &e) { return e.button->isChecked(); });
    (current == m_entries.end() ? m_entries.front() : *current).button->setFocus(Qt::ShortcutFocusReason);
}

std::vector<host::ModuleId> Navigation::modules() const
{
    std::vector<host::ModuleId> result;
    for (const Entry &entry : m_entries)
        result.push_back(entry.module);
    return result;
}

bool Navigation::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Up:
        moveFocus(watched, -1);
        return true;
    case Qt::Key_Down:
        moveFocus(watched, 1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        static_cast<QToolButton *>(watched)->click();
        return true;
    default:
        return false;
    }
}

void Navigation::moveFocus(QObject *from, int step)
{
    const auto at = std::ranges::find(m_entries, from, &Entry::button) - m_entries.begin();
    const auto to = std::clamp<std::ptrdiff_t>(at + step, 0, std::ssize(m_entries) - 1);
    m_entries[static_cast<size_t>(to)].button->setFocus(Qt::TabFocusReason);
}

} // namespace ebtq::shell
