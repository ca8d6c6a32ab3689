#include "shell/lists/list_commands.h"

#include "shell/lists/find_bar.h"
#include "shell/lists/list_rows.h"

#include <QAction>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>

namespace ebtq::shell {

ListCommands::ListCommands(IReportUI &module, QWidget &view, QVBoxLayout &column)
    : CommandBar(view, column)
    , m_module(module)
    , m_findBar(new FindBar(view.parentWidget()))
{
    setObjectName(QStringLiteral("ListCommands"));
    column.addWidget(m_findBar);
    connect(m_findBar, &FindBar::wanted, this, &ListCommands::find);
    connect(m_findBar, &FindBar::filterChanged, this,
            [this](const QString &text) { run([&] { m_module.IReportUI_Filter(text); }); });
    connect(m_findBar, &FindBar::left, &view, [&view] { view.setFocus(Qt::OtherFocusReason); });
    connect(m_findBar, &FindBar::left, this, &ListCommands::findLeft);
}

ListCommands::~ListCommands()
{
    delete m_findBar;
}

void ListCommands::addCommon()
{
    if (!isEmpty())
        addSeparator();
    addFind();
    addSeparator();
    addPrint();
    addSeparator();
    add(QStringLiteral("refresh"), QStringLiteral("view-refresh"), QStringLiteral("刷新"),
        [this] { refresh(); });
    add(QStringLiteral("close"), QStringLiteral("dialog-close"), QStringLiteral("关闭"),
        [this] { Q_EMIT closeWanted(); });
    row().addStretch();
    m_findBar->addActions(actions());
}

void ListCommands::addFind()
{
    add(QStringLiteral("find"), QStringLiteral("edit-find"), QStringLiteral("查找"), [this] {
        openFindBar(m_findBar->isFiltering());
    }).setShortcut(QKeySequence::Find);
    add(QStringLiteral("findNext"), QStringLiteral("go-next"), QStringLiteral("查找下一个"), [this] {
        findAgain(1);
    }).setShortcut(Qt::Key_F3);
    add(QStringLiteral("filter"), QStringLiteral("view-filter"), QStringLiteral("过滤"),
        [this] { openFindBar(true); });
    auto *back = new QShortcut(Qt::SHIFT | Qt::Key_F3, view().parentWidget(), nullptr, nullptr,
                               Qt::WidgetWithChildrenShortcut);
    connect(back, &QShortcut::activated, this, [this] { findAgain(-1); });
}

void ListCommands::addPrint()
{
    add(QStringLiteral("preview"), QStringLiteral("document-preview"), QStringLiteral("预览"),
        [this] { m_module.IReportUI_PrintPreview(); });
    add(QStringLiteral("print"), QStringLiteral("document-print"), QStringLiteral("打印"), [this] {
        m_module.IReportUI_DoPrint();
    }).setShortcut(QKeySequence::Print);
    add(QStringLiteral("setup"), QStringLiteral("configure"), QStringLiteral("页面设置"),
        [this] { m_module.IReportUI_PrintSetup(); });
}

/// As by the key: a view that takes it checks the field that is being filled in first.
void ListCommands::refresh()
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
    if (QCoreApplication::sendEvent(&view(), &press); !press.isAccepted())
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
