#include "screens/lists/record_list_view.h"

#include "library/lists/record_list.h"
#include "screens/controls/field_view.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/controls/grid_menu.h"
#include "screens/controls/tool_bar_view.h"
#include "screens/lists/record_detail_view.h"
#include "screens/look/look.h"

#include <QAction>
#include <QApplication>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

const QString refreshKey = u"refresh"_s;

struct Shortcut
{
    const char16_t *key;
    Qt::Key letter;
};
constexpr Shortcut shortcuts[] = {
    {u"all", Qt::Key_A}, {u"buy", Qt::Key_B},     {u"rent", Qt::Key_R},
    {u"new", Qt::Key_N}, {u"edit", Qt::Key_E},    {u"delete", Qt::Key_D},
    {u"gj", Qt::Key_G},  {u"refresh", Qt::Key_U}, {u"close", Qt::Key_X},
};

} // namespace

RecordListView::RecordListView(RecordList &module, const ListLook &look, QWidget *parent)
    : ListView(module, look, parent)
    , m_module(module)
{
    addToolBar();
    addFilterRow();
    m_grid = makeGrid();
    GridMenu *menu = makeMenu(&m_module.NavToolbar1(), m_toolBar);
    // Printing is the list's own operation.
    menu->setPrint([this](bool bPrint, bool bSetup) { m_module.SelfPrint(bPrint, bSetup); });
    follow(m_module, menu);
    if (!m_module.copyCaption().isEmpty())
        addCopying();
    for (const int kind : {0, 1})
        connect(&m_module.Chk(kind), &CheckBox::Click, this, &RecordListView::followKind);
    followKind();
}

void RecordListView::addToolBar()
{
    m_toolBar = new ToolBarView(m_module.NavToolbar1(), this);
    QHash<QString, QKeySequence> keys;
    for (const Shortcut &shortcut : shortcuts)
        keys.insert(QString::fromUtf16(shortcut.key), QKeySequence(Qt::ALT | shortcut.letter));
    m_toolBar->setShortcuts(keys);
    // The other commands empty the fields or do not read them; a wrong text must not block them.
    m_toolBar->setGuard([](const QString &key) { return key != refreshKey || FieldView::checkFocused(); });
    column()->addWidget(m_toolBar);
}

/// A command of the row's menu, by its key from everywhere in the list's page.
void RecordListView::addCopying()
{
    auto *copying = new QAction(look::icon(u"edit-copy"_s), m_module.copyCaption(), this);
    copying->setObjectName(u"copyRecord"_s);
    copying->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_N);
    copying->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    const auto follow = [this, copying] { copying->setEnabled(m_module.mayCopy()); };
    connect(&m_module.NavToolbar1(), &Control::stateChanged, copying, follow);
    follow();
    connect(copying, &QAction::triggered, &m_module, &RecordList::copyCurrent);
    addAction(copying);
}

void RecordListView::setDetail(RecordDetailView *detail)
{
    m_detail = detail;
    m_parts = new QSplitter(Qt::Vertical, this);
    m_parts->setObjectName(u"parts"_s);
    m_parts->setChildrenCollapsible(false);
    m_parts->setHandleWidth(5);
    m_parts->addWidget(m_grid);
    m_parts->addWidget(m_detail);
    m_parts->setStretchFactor(0, 1);
    column()->addWidget(m_parts, 1);
    connect(m_detail, &RecordDetailView::foldingWanted, this, &RecordListView::setDetailFolded);
    auto *key = new QShortcut(Qt::CTRL | Qt::Key_D, this);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    connect(key, &QShortcut::activated, this, [this] { setDetailFolded(!isDetailFolded()); });
}

bool RecordListView::isDetailFolded() const
{
    return m_detail->isFolded();
}

void RecordListView::setDetailFolded(bool folded)
{
    if (folded == isDetailFolded())
        return;
    if (folded) {
        m_detailHeight = m_detail->height();
        if (m_detail->isAncestorOf(QApplication::focusWidget()))
            m_grid->setFocus(Qt::OtherFocusReason);
    }
    m_detail->setFolded(folded);
    const int height = folded ? m_detail->maximumHeight() : m_detailHeight;
    m_parts->setSizes({m_parts->height() - height - m_parts->handleWidth(), height});
}

/// The pressed button shows the ticked kind; with both ticked none of the three is pressed.
void RecordListView::followKind()
{
    const bool sale = m_module.Chk(0).Value() != 0;
    const bool rent = m_module.Chk(1).Value() != 0;
    const QString key = sale ? (rent ? QString() : u"buy"_s) : (rent ? u"rent"_s : u"all"_s);
    m_toolBar->setCurrentKey(key);
}

/// F6 goes through the parts of the program; here it stops at the detail first.
bool RecordListView::isOwnKey(int key) const
{
    return ListView::isOwnKey(key) ||
           (key == Qt::Key_F6 && !m_detail->isAncestorOf(QApplication::focusWidget()));
}

void RecordListView::ownKeyPressed(int key)
{
    if (key == Qt::Key_F6)
        m_detail->setFocus(Qt::TabFocusReason);
    else
        ListView::ownKeyPressed(key);
}

void RecordListView::refresh()
{
    if (FieldView::checkFocused())
        m_module.NavToolbar1().press(refreshKey);
}

} // namespace ebtq
