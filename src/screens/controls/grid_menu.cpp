#include "screens/controls/grid_menu.h"

#include "library/controls/nav_toolbar.h"
#include "library/controls/shown_grid.h"
#include "library/frame/desktop.h"
#include "library/frame/wait_cursor.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/controls/passing_menu.h"
#include "screens/controls/tool_bar_view.h"
#include "screens/export/table_text.h"
#include "screens/export/workbook.h"
#include "screens/look/look.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QItemSelectionModel>
#include <QMimeData>
#include <QProgressDialog>
#include <QShortcut>
#include <QStandardPaths>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

/// A kind of file that a list can be exported to.
struct GridMenu::Format
{
    QStringView caption;
    QStringView ending;
    QStringView filter;
    bool (*write)(const ShownGrid &table, const QString &path, const ExportProgress &progress);
};

namespace {

/// The HTML table is many times as long as the text; more rows than this are not worth it.
constexpr int mostRowsAsTable = 5000;
constexpr int patience = 200; // milliseconds before progress is shown

/// The visible positions of the selected rows, which are contiguous; the current row when none is selected.
std::pair<int, int> chosenRows(const FlexGridView &view)
{
    const QModelIndexList rows = view.selectionModel()->selectedRows();
    if (rows.isEmpty())
        return {view.currentIndex().row(), view.currentIndex().row()};
    const auto [first, last] = std::ranges::minmax(rows, {}, &QModelIndex::row);
    return {first.row(), last.row()};
}

} // namespace

GridMenu::GridMenu(FlexGridView &view, VSFlexGrid &grid, QWidget &page, Desktop &desktop)
    : QObject(&view)
    , m_view(view)
    , m_grid(grid)
    , m_page(page)
    , m_desktop(desktop)
    , m_listName(u"列表"_s)
    , m_folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
{
    m_view.setSelectionMode(QAbstractItemView::ContiguousSelection);
    m_view.installEventFilter(this);
    m_view.viewport()->installEventFilter(this);
    addShortcuts();
}

void GridMenu::setCommands(NavToolbar &commands, ToolBarView &toolBar)
{
    m_commands = &commands;
    m_toolBar = &toolBar;
}

void GridMenu::addShortcuts()
{
    auto *copying = new QShortcut(QKeySequence::Copy, &m_view, nullptr, nullptr, Qt::WidgetShortcut);
    connect(copying, &QShortcut::activated, this, &GridMenu::copy);
}

void GridMenu::setPrint(std::function<void(bool bPrint, bool bSetup)> print)
{
    m_print = std::move(print);
    auto *printing =
        new QShortcut(QKeySequence::Print, &m_page, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(printing, &QShortcut::activated, this, [this] { m_print(true, false); });
}

/// A press of the right button has made its row current before. What comes up from the header with the mouse
/// is none of this menu's business.
bool GridMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ContextMenu)
        return QObject::eventFilter(watched, event);
    const auto &request = static_cast<const QContextMenuEvent &>(*event);
    const bool isByKey = request.reason() == QContextMenuEvent::Keyboard;
    if (!isByKey && watched != m_view.viewport())
        return QObject::eventFilter(watched, event);
    popUp(isByKey ? placeOfCurrentRow() : request.globalPos());
    event->accept();
    return true;
}

QPoint GridMenu::placeOfCurrentRow() const
{
    m_view.scrollTo(m_view.currentIndex());
    const QRect cell = m_view.visualRect(m_view.currentIndex());
    return m_view.viewport()->mapToGlobal(cell.isValid() ? cell.bottomLeft() : QPoint());
}

void GridMenu::popUp(const QPoint &place)
{
    auto *menu = new PassingMenu(&m_view);
    menu->setObjectName(u"GridMenu"_s);
    if (m_commands)
        addCommands(*menu);
    addPageActions(*menu);
    addExport(*menu);
    if (m_print)
        addPrint(*menu);
    menu->popup(place);
}

/// A command is given by its button, with everything that the button sees to.
void GridMenu::addCommands(PassingMenu &menu)
{
    for (const NavToolbar::Item &item : m_commands->items()) {
        if (item.key.isEmpty()) {
            menu.addSeparator();
            continue;
        }
        auto *button = m_toolBar->findChild<QToolButton *>(m_commands->Name() + u'_' + item.key);
        if (!item.visible || !button)
            continue;
        QAction *action =
            menu.offer(item.icon.isEmpty() ? QIcon() : look::icon(item.icon),
                       item.caption + u'\t' + button->shortcut().toString(), button, &QToolButton::click);
        action->setObjectName(item.key);
        action->setEnabled(item.enabled && m_commands->Enabled());
    }
}

void GridMenu::addPageActions(PassingMenu &menu)
{
    for (QAction *offered : m_page.actions()) {
        if (offered->isSeparator()) {
            menu.addSeparator();
            continue;
        }
        const QString key = offered->shortcut().toString(QKeySequence::NativeText);
        const QIcon icon = offered->isCheckable() ? QIcon() : offered->icon(); // it would hide the tick
        QAction *action = menu.offer(icon, key.isEmpty() ? offered->text() : offered->text() + u'\t' + key,
                                     offered, &QAction::trigger);
        action->setObjectName(offered->objectName());
        action->setEnabled(offered->isEnabled());
        action->setCheckable(offered->isCheckable());
        action->setChecked(offered->isChecked());
        action->setVisible(offered->isVisible());
    }
}

void GridMenu::addExport(PassingMenu &menu)
{
    static constexpr Format formats[] = {
        {u"导出 Excel(&L)…", u"xlsx", u"Excel 工作簿", &writeWorkbook},
        {u"导出 CSV(&S)…", u"csv", u"CSV 文件", &writeCsv},
    };
    menu.addSeparator();
    QAction *copying = menu.offer(u"复制(&C)\tCtrl+C"_s, this, &GridMenu::copy);
    copying->setEnabled(m_view.currentIndex().isValid());
    for (const Format &format : formats)
        menu.offer(format.caption.toString(), this, [this, &format] { exportAs(format); });
}

void GridMenu::addPrint(PassingMenu &menu)
{
    menu.addSeparator();
    menu.offer(u"打印预览(&V)"_s, this, [this] { m_print(false, false); });
    menu.offer(look::icon(u"document-print"_s), u"打印(&P)…\tCtrl+P"_s, this,
               [this] { m_print(true, false); });
    menu.offer(u"页面设置(&U)…"_s, this, [this] { m_print(false, true); });
}

void GridMenu::copy()
{
    const auto [first, last] = chosenRows(m_view);
    if (first < 0)
        return;
    const WaitCursor wait(m_desktop);
    ShownGrid table(m_grid);
    table.keepRows(first, last);
    table.keepCaptioned();
    auto *contents = new QMimeData;
    const bool isAlsoTable = table.rowCount() <= mostRowsAsTable;
    contents->setText(tabbedText(table, isAlsoTable ? Formulas::AsShown : Formulas::Guarded));
    if (isAlsoTable)
        contents->setHtml(htmlTable(table));
    QApplication::clipboard()->setMimeData(contents);
    Q_EMIT message(u"已复制%1行"_s.arg(table.rowCount()));
}

void GridMenu::exportAs(const Format &format)
{
    const QString name =
        u"%1 %2.%3"_s.arg(m_listName, m_desktop.now().date().toString(Qt::ISODate), format.ending);
    FileDialog dialog;
    dialog.title = u"导出列表"_s;
    dialog.file = QDir(m_folder).filePath(name);
    dialog.filter = u"%1%2*.%3"_s.arg(format.filter, QChar(u'\0'), format.ending);
    dialog.defaultExt = format.ending.toString();
    dialog.flags = FileDialog::OverwritePrompt | FileDialog::HideReadOnly;
    if (!m_desktop.saveDialog(dialog))
        return;
    const QString path = dialog.file;
    m_folder = QFileInfo(path).absolutePath();
    try {
        ShownGrid table(m_grid);
        table.keepCaptioned();
        if (write(format, table, path))
            Q_EMIT message(u"已导出%1行到 %2"_s.arg(QString::number(table.rowCount()), path));
    } catch (const std::exception &failure) {
        Q_EMIT failed(QString::fromUtf8(failure.what()));
    }
}

bool GridMenu::write(const Format &format, const ShownGrid &table, const QString &path) const
{
    QProgressDialog progress(u"正在导出…"_s, u"取消(&C)"_s, 0, table.rowCount(), &m_view);
    progress.setWindowTitle(u"导出列表"_s);
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(patience);
    return format.write(table, path, [&progress](int rows) {
        progress.setValue(rows);
        return !progress.wasCanceled();
    });
}

} // namespace ebtq
