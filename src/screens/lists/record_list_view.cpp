#include "screens/lists/record_list_view.h"

#include "library/lists/record_list.h"
#include "screens/controls/check_box_view.h"
#include "screens/controls/combo_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/field_view.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/controls/flow_layout.h"
#include "screens/controls/grid_menu.h"
#include "screens/controls/search_box_view.h"
#include "screens/controls/tool_bar_view.h"
#include "screens/lists/record_detail_view.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

namespace ebtq {

namespace {

const QString refreshKey = QStringLiteral("refresh");

constexpr int periodCharacters = 5;
constexpr int searchCharacters = 11;
constexpr int searchCharactersAtMost = 30;
/// A field's frame, the space in it and its button, in characters.
constexpr int aroundText = 3;

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

int widthOf(const QWidget &field, int characters)
{
    return (characters + aroundText) * field.fontMetrics().horizontalAdvance(u'房');
}

void fixWidth(QWidget &field, int characters)
{
    field.setFixedWidth(widthOf(field, characters));
    field.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

/// A caption and its field, which stay together where the row folds.
QHBoxLayout *captioned(QLabel *caption, QWidget *field)
{
    auto *pair = new QHBoxLayout;
    pair->setSpacing(6);
    caption->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    pair->addWidget(caption);
    pair->addWidget(field);
    return pair;
}

} // namespace

RecordListView::RecordListView(RecordList &module, const RecordListLook &look, QWidget *parent)
    : QWidget(parent)
    , m_module(module)
    , m_look(look)
{
    setObjectName(module.name());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    addToolBar();
    addFilterRow();
    addGrid();
    addMenu();
    followKind();
    followOutcome();
}

void RecordListView::addToolBar()
{
    m_toolBar = new ToolBarView(m_module.NavToolbar1(), this);
    QHash<QString, QKeySequence> keys;
    for (const Shortcut &shortcut : shortcuts)
        keys.insert(QString::fromUtf16(shortcut.key), QKeySequence(Qt::ALT | shortcut.letter));
    m_toolBar->setShortcuts(keys);
    // The other commands empty the fields or do not read them; a wrong text must not stand in their way.
    m_toolBar->setGuard([](const QString &key) { return key != refreshKey || FieldView::checkFocused(); });
    layout()->addWidget(m_toolBar);
}

void RecordListView::addFilterRow()
{
    auto *bar = new QWidget(this);
    bar->setProperty("kind", QStringLiteral("bar"));
    bar->setAttribute(Qt::WA_StyledBackground);
    auto *row = new FlowLayout(bar);
    row->setContentsMargins(12, 6, 12, 6);
    row->setSpacing(8);
    addFields(*row, bar);
    addPeriods(*row, bar);
    addKinds(*row, bar);
    addSearch(*row, bar);
    layout()->addWidget(bar);
}

void RecordListView::addFields(FlowLayout &row, QWidget *parent)
{
    for (const RecordListLook::Field &filter : m_look.fields) {
        qzTxt_S &field = m_module.qzTxt(filter.number);
        auto *view = new FieldView(field, parent);
        fixWidth(*view, filter.characters);
        view->setEnter(FieldView::Enter::Confirms);
        connect(view, &FieldView::confirmed, this, &RecordListView::refresh);
        row.addLayout(captioned(makeCaption(field, *view, parent), view));
    }
}

void RecordListView::addPeriods(FlowLayout &row, QWidget *parent)
{
    auto *view = new ComboView(m_module.XPCmb(), parent);
    fixWidth(*view, periodCharacters);
    connect(view, &ComboView::confirmed, this, &RecordListView::refresh);
    row.addLayout(captioned(makeCaption(m_module.XPCmb(), *view, parent), view));
}

/// Both ticks in one item: where the row folds, they are read together.
void RecordListView::addKinds(FlowLayout &row, QWidget *parent)
{
    auto *pair = new QHBoxLayout;
    pair->setSpacing(row.spacing());
    for (const auto &[number, letter] : {std::pair(0, u'S'), std::pair(1, u'Z')}) {
        CheckBox &box = m_module.Chk(number);
        auto *view = new CheckBoxView(box, parent, letter);
        connect(view, &QCheckBox::clicked, this, &RecordListView::refresh);
        connect(&box, &CheckBox::Click, this, &RecordListView::followKind);
        pair->addWidget(view);
    }
    row.addLayout(pair);
}

void RecordListView::addSearch(FlowLayout &row, QWidget *parent)
{
    auto *view = new SearchBoxView(m_module.SearchBox1(), parent);
    view->setPlaceholderText(m_look.searchHint.toString());
    view->setMinimumWidth(widthOf(*view, searchCharacters));
    view->setMaximumWidth(widthOf(*view, searchCharactersAtMost));
    view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    row.addLayout(captioned(makeCaption(m_module.lblSearch(), *view, parent), view));
    row.addWidget(new CheckBoxView(m_module.ChkFind(), parent, u'I'));
}

void RecordListView::addGrid()
{
    m_grid = new FlexGridView(m_module.VS(), this);
    for (const RecordListLook::Column &column : m_look.columns)
        m_grid->setColumnLook(column.number, {column.ink});
    m_grid->setMouseWheel([this] { return m_module.mcMouseEvent(); });
}

/// Printing is the list's own operation; what else the menu does with the rows reports as the list does.
void RecordListView::addMenu()
{
    auto *menu = new GridMenu(*m_grid, m_module.VS(), m_module.NavToolbar1(), *m_toolBar, m_module.desktop());
    menu->setListName(m_look.listName.toString());
    menu->setPrint([this](bool bPrint, bool bSetup) { m_module.SelfPrint(bPrint, bSetup); });
    connect(menu, &GridMenu::message, &m_module, &RecordList::Message);
    connect(menu, &GridMenu::failed, &m_module, [this](const QString &text) {
        Q_EMIT m_module.ErrMessage(text, FailureLevel, applicationTitle());
    });
}

void RecordListView::setDetail(RecordDetailView *detail)
{
    m_detail = detail;
    auto *parts = new QSplitter(Qt::Vertical, this);
    parts->setObjectName(QStringLiteral("parts"));
    parts->setChildrenCollapsible(false);
    parts->setHandleWidth(5);
    parts->addWidget(m_grid);
    parts->addWidget(m_detail);
    parts->setStretchFactor(0, 1);
    static_cast<QVBoxLayout *>(layout())->addWidget(parts, 1);
}

/// The pressed button tells which kind the ticks stand for; with both ticked none of the three does.
void RecordListView::followKind()
{
    const bool sale = m_module.Chk(0).Value() != 0;
    const bool rent = m_module.Chk(1).Value() != 0;
    const QString key = sale ? (rent ? QString() : QStringLiteral("buy"))
                             : (rent ? QStringLiteral("rent") : QStringLiteral("all"));
    m_toolBar->setCurrentKey(key);
}

/// "Nothing found" is said of a load that worked, never of a list that a failure left empty.
void RecordListView::followOutcome()
{
    connect(&m_module, &RecordList::RefreshGetGridStatus, this,
            [this] { m_grid->setEmptyHint(m_look.emptyHint.toString()); });
    connect(&m_module, &RecordList::ErrMessage, this, [this] { m_grid->setEmptyHint(QString()); });
}

/// F5 and F6 are the program's keys for whatever page is open. While the keyboard is in this one, F5 is the
/// tool bar's command, which checks the field that is being filled in, and F6 stops at the detail on its way.
bool RecordListView::isOwnKey(int key) const
{
    return key == Qt::Key_F5 || (key == Qt::Key_F6 && !m_detail->isAncestorOf(QApplication::focusWidget()));
}

/// A focus proxy would take each Tab that comes into the view, and the filters would never be reached.
void RecordListView::focusInEvent(QFocusEvent *event)
{
    m_grid->setFocus(event->reason());
}

bool RecordListView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(static_cast<QKeyEvent *>(event)->key()))
        event->accept();
    return QWidget::event(event);
}

void RecordListView::keyPressEvent(QKeyEvent *event)
{
    if (!isOwnKey(event->key()))
        QWidget::keyPressEvent(event);
    else if (event->key() == Qt::Key_F5)
        refresh();
    else
        m_detail->setFocus(Qt::TabFocusReason);
}

void RecordListView::refresh()
{
    if (FieldView::checkFocused())
        m_module.NavToolbar1().press(refreshKey);
}

} // namespace ebtq
