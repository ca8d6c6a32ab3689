#include "shell/command_bar.h"

#include "screens/look/look.h"

#include <QAction>
#include <QFrame>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

#include <exception>
#include <utility>

namespace ebtq::shell {

namespace {

constexpr int separatorHeight = 18;
constexpr int narrowest = 700;

} // namespace

CommandBar::CommandBar(QWidget &view, QVBoxLayout &column)
    : m_view(view)
    , m_row(new QHBoxLayout(this))
{
    setProperty("kind", QStringLiteral("bar"));
    setAttribute(Qt::WA_StyledBackground);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_row->setContentsMargins(12, 6, 12, 6);
    m_row->setSpacing(6);
    column.insertWidget(column.indexOf(&view), this);
    view.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&view, &QWidget::customContextMenuRequested, this, &CommandBar::popUp);
}

void CommandBar::run(const std::function<void()> &command)
{
    try {
        command();
    } catch (const std::exception &failure) {
        Q_EMIT failed(QString::fromUtf8(failure.what()));
    }
}

QAction &CommandBar::add(const QString &name, const QString &icon, const QString &text,
                         std::function<void()> command)
{
    auto *action = new QAction(look::icon(icon), text, this);
    action->setObjectName(name);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [this, command = std::move(command)] { run(command); });
    m_view.addAction(action);
    addAction(action);
    addButton(*action);
    return *action;
}

/// A button of an action would show no mnemonic.
void CommandBar::addButton(QAction &action)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QStringLiteral("Command_") + action.objectName());
    button->setProperty("kind", QStringLiteral("flat"));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    const auto follow = [this, &action, button] {
        const QString key = action.shortcut().toString(QKeySequence::NativeText);
        button->setToolButtonStyle(isIconAlone(action) ? Qt::ToolButtonIconOnly
                                                       : Qt::ToolButtonTextBesideIcon);
        button->setText(action.text());
        button->setIcon(action.icon());
        button->setEnabled(action.isEnabled());
        button->setCheckable(action.isCheckable());
        button->setChecked(action.isChecked());
        button->setToolTip(key.isEmpty() ? action.toolTip()
                                         : QStringLiteral("%1 (%2)").arg(action.toolTip(), key));
    };
    connect(&action, &QAction::changed, button, follow);
    connect(this, &CommandBar::fitted, button, follow);
    connect(button, &QToolButton::clicked, &action, &QAction::trigger);
    follow();
    m_row->addWidget(button);
}

bool CommandBar::isIconAlone(const QAction &action) const
{
    return action.priority() <= (m_isNarrow ? QAction::NormalPriority : QAction::LowPriority);
}

QSize CommandBar::minimumSizeHint() const
{
    return {narrowest, QWidget::minimumSizeHint().height()};
}

void CommandBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    setNarrow(false);
    setNarrow(m_row->minimumSize().width() > width());
}

void CommandBar::setNarrow(bool narrow)
{
    if (std::exchange(m_isNarrow, narrow) != narrow)
        Q_EMIT fitted();
}

void CommandBar::popUp(const QPoint &place)
{
    auto *menu = new QMenu(&m_view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(m_view.actions());
    menu->popup(m_view.mapToGlobal(place));
}

void CommandBar::addSeparator()
{
    auto *line = new QFrame(this);
    line->setFrameShape(QFrame::VLine);
    line->setFixedHeight(separatorHeight);
    line->setProperty("kind", QStringLiteral("separator"));
    m_row->addWidget(line);
    auto *between = new QAction(this);
    between->setSeparator(true);
    m_view.addAction(between);
}

void CommandBar::addAtEnd(QWidget &widget)
{
    m_row->addStretch();
    m_row->addWidget(&widget, 0, Qt::AlignVCenter);
}

bool CommandBar::isEmpty() const
{
    return m_row->count() == 0;
}

} // namespace ebtq::shell
