#include "shell/lists/list_commands.h"

#include "screens/look/look.h"
#include "shell/lists/find_bar.h"
#include "shell/lists/list_rows.h"

#include <QAction>
#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <exception>

namespace ebtq::shell {

namespace {

constexpr int separatorHeight = 18;

} // namespace

ListCommands::ListCommands(IReportUI &module, QWidget &view, QVBoxLayout &column)
    : m_module(module)
    , m_view(view)
    , m_findBar(new FindBar(view.parentWidget()))
    , m_row(new QHBoxLayout(this))
{
    setObjectName(QStringLiteral("ListCommands"));
    setProperty("kind", QStringLiteral("bar"));
    setAttribute(Qt::WA_StyledBackground);
    m_row->setContentsMargins(12, 6, 12, 6);
    m_row->setSpacing(6);
    column.insertWidget(column.indexOf(&view), this);
    column.addWidget(m_findBar);
    connect(m_findBar, &FindBar::wanted, this, &ListCommands::find);
    connect(m_findBar, &FindBar::filterChanged, this,
            [this](const QString &text) { run([&] { m_module.IReportUI_Filter(text); }); });
    connect(m_findBar, &FindBar::left, &m_view, [this] { m_view.setFocus(Qt::OtherFocusReason); });
    connect(m_findBar, &FindBar::left, this, &ListCommands::findLeft);
}

ListCommands::~ListCommands()
{
    delete m_findBar;
}

template<class Operation> void ListCommands::run(Operation operation)
{
    try {
        operation();
    } catch (const std::exception &failure) {
        Q_EMIT failed(QString::fromUtf8(failure.what()));
    }
}

QAction &ListCommands::add(const QString &name, const QString &icon, const QString &text,
                           std::function<void()> command)
{
    auto *action = new QAction(look::icon(icon), text, this);
    action->setObjectName(name);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [this, command = std::move(command)] { run(command); });
    m_view.addAction(action);
    m_findBar->addAction(action);
    addButton(*action);
    return *action;
}

/// A button of an action would show no mnemonic.
void ListCommands::addButton(QAction &action)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QStringLiteral("Command_") + action.objectName());
    button->setProperty("kind", QStringLiteral("flat"));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    const auto follow = [&action, button] {
        const QString key = action.shortcut().toString(QKeySequence::NativeText);
        button->setText(action.text());
        button->setIcon(action.icon());
        button->setEnabled(action.isEnabled());
        button->setCheckable(action.isCheckable());
        button->setChecked(action.isChecked());
        button->setToolTip(key.isEmpty() ? action.toolTip()
                                         : QStringLiteral("%1 (%2)").arg(action.toolTip(), key));
    };
    connect(&action, &QAction::changed, button, follow);
    connect(button, &QToolButton::clicked, &action, &QAction::trigger);
    follow();
    m_row->addWidget(button);
}

void ListCommands::addSeparator()
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

void ListCommands::addCommon()
{
    if (m_row->count() > 0)
        addSeparator();
    add(QStringLiteral("find"), QStringLiteral("edit-find"), QStringLiteral("查找"), [this] {
        openFindBar(m_findBar->isFiltering());
    }).setShortcut(QKeySequence::Find);
    add(QStringLiteral("findNext"), QStringLiteral("go-next"), QStringLiteral("查找下一个"), [this] {
        findAgain(1);
    }).setShortcut(Qt::Key_F3);
    add(QStringLiteral("filter"), QStringLiteral("view-filter"), QStringLiteral("过滤"),
        [this] { openFindBar(true); });
    addSeparator();
    add(QStringLiteral("preview"), QStringLiteral("document-preview"), QStringLiteral("预览"),
        [this] { m_module.IReportUI_PrintPreview(); });
    add(QStringLiteral("print"), QStringLiteral("document-print"), QStringLiteral("打印"), [this] {
        m_module.IReportUI_DoPrint();
    }).setShortcut(QKeySequence::Print);
    add(QStringLiteral("setup"), QStringLiteral("configure"), QStringLiteral("页面设置"),
        [this] { m_module.IReportUI_PrintSetup(); });
    addSeparator();
    add(QStringLiteral("refresh"), QStringLiteral("view-refresh"), QStringLiteral("刷新"),
        [this] { refresh(); });
    add(QStringLiteral("close"), QStringLiteral("dialog-close"), QStringLiteral("关闭"),
        [this] { Q_EMIT closeWanted(); });
    m_row->addStretch();
    auto *back = new QShortcut(Qt::SHIFT | Qt::Key_F3, m_view.parentWidget(), nullptr, nullptr,
                               Qt::WidgetWithChildrenShortcut);
    connect(back, &QShortcut::activated, this, [this] { findAgain(-1); });
}

/// As by the key: a view that takes it checks the field that is being filled in first.
void ListCommands::refresh()
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
    if (QCoreApplication::sendEvent(&m_view, &press); !press.isAccepted())
        Q_EMIT refreshWanted();
}

void ListCommands::openFindBar(bool filters)
{
    m_findBar->open(ListRows(m_module.IReportUI_oTable()).currentColumn(), filters);
}

void ListCommands::findAgain(int direction)
{
    m_findBar->text().isEmpty() ? openFindBar(m_findBar->isFiltering()) : find(direction);
}

/// A new text is looked for from the current row on; one that was found there is gone on from.
void ListCommands::find(int direction)
{
    run([&] {
        const QString text = m_findBar->text();
        const bool isNew = text != m_soughtText;
        if (isNew)
            m_findBar->setColumn(ListRows(m_module.IReportUI_oTable()).currentColumn());
        if (isNew || direction != m_soughtDirection)
            m_module.IReportUI_Find(QVariantList{text, direction});
        if (!isNew)
            m_module.IReportUI_FindNext();
        m_soughtText = text;
        m_soughtDirection = direction;
    });
}

void ListCommands::rowsLoaded()
{
    if (m_findBar->isFiltering())
        run([this] { m_module.IReportUI_Filter(m_findBar->text()); });
}

} // namespace ebtq::shell
