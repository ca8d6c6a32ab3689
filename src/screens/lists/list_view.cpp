#include "screens/lists/list_view.h"

#include "screens/controls/check_box_view.h"
#include "screens/controls/combo_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/field_view.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/controls/flow_layout.h"
#include "screens/controls/search_box_view.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int periodCharacters = 5;
constexpr int searchCharacters = 11;
constexpr int searchCharactersAtMost = 30;
/// A field's frame, the space in it and its button, in characters.
constexpr int aroundText = 3;

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

ListView::ListView(ListModule &module, const ListLook &look, QWidget *parent)
    : QWidget(parent)
    , m_module(module)
    , m_look(look)
{
    setObjectName(module.name());
    auto *parts = new QVBoxLayout(this);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(0);
}

QVBoxLayout *ListView::column() const
{
    return static_cast<QVBoxLayout *>(layout());
}

void ListView::addFilterRow()
{
    auto *bar = new QWidget(this);
    bar->setProperty("kind", u"bar"_s);
    bar->setAttribute(Qt::WA_StyledBackground);
    auto *row = new FlowLayout(bar);
    row->setContentsMargins(12, 6, 12, 6);
    row->setSpacing(8);
    addFields(*row, bar);
    if (m_module.hasPeriods())
        addPeriods(*row, bar);
    addKinds(*row, bar);
    addSearch(*row, bar);
    column()->addWidget(bar);
}

void ListView::addFields(FlowLayout &row, QWidget *parent)
{
    for (const ListLook::Field &filter : m_look.fields) {
        qzTxt_S &field = m_module.qzTxt(filter.number);
        auto *view = new FieldView(field, parent);
        fixWidth(*view, filter.characters);
        view->setEnter(FieldView::Enter::Confirms);
        connect(view, &FieldView::confirmed, this, &ListView::refresh);
        row.addLayout(captioned(makeCaption(field, *view, parent), view));
    }
}

void ListView::addPeriods(FlowLayout &row, QWidget *parent)
{
    auto *view = new ComboView(m_module.XPCmb(), parent);
    fixWidth(*view, periodCharacters);
    connect(view, &ComboView::confirmed, this, &ListView::refresh);
    row.addLayout(captioned(makeCaption(m_module.XPCmb(), *view, parent), view));
}

/// Both ticks in one item: where the row folds, they are read together.
void ListView::addKinds(FlowLayout &row, QWidget *parent)
{
    auto *pair = new QHBoxLayout;
    pair->setSpacing(row.spacing());
    for (const auto &[number, letter] :
         {std::pair(0, m_look.kindKeys[0]), std::pair(1, m_look.kindKeys[1])}) {
        CheckBox &box = m_module.Chk(number);
        auto *view = new CheckBoxView(box, parent, letter);
        connect(view, &QCheckBox::clicked, this, &ListView::refresh);
        pair->addWidget(view);
    }
    row.addLayout(pair);
}

/// The tick folds with its box.
void ListView::addSearch(FlowLayout &row, QWidget *parent)
{
    auto *view = new SearchBoxView(m_module.SearchBox1(), parent);
    view->setPlaceholderText(m_look.searchHint.toString());
    if (!m_look.isFoundByHost)
        view->takeFindKey();
    view->setMinimumWidth(widthOf(*view, searchCharacters));
    view->setMaximumWidth(widthOf(*view, searchCharactersAtMost));
    view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QHBoxLayout *search = captioned(makeCaption(m_module.lblSearch(), *view, parent), view);
    search->addWidget(new CheckBoxView(m_module.ChkFind(), parent, u'I'));
    row.addLayout(search);
}

FlexGridView *ListView::makeGrid()
{
    m_grid = new FlexGridView(m_module.VS(), this);
    for (const ListLook::Column &column : m_look.columns)
        m_grid->setColumnLook(column.number, {column.ink});
    m_grid->setMouseWheel([this] { return m_module.mcMouseEvent(); });
    return m_grid;
}

GridMenu *ListView::makeMenu(NavToolbar *commands, ToolBarView *toolBar)
{
    auto *menu = new GridMenu(*m_grid, m_module.VS(), *this, m_module.desktop());
    menu->setListName(m_module.title());
    if (commands)
        menu->setCommands(*commands, *toolBar);
    return menu;
}

void ListView::showOutcome(bool done)
{
    m_grid->setEmptyHint(done ? m_look.emptyHint.toString() : QString());
}

void ListView::refresh()
{
    if (FieldView::checkFocused())
        m_module.IReportUI_Refresh();
}

/// F5 is the program's key for whatever page is open. While the keyboard is in this one, the field that is
/// being filled in is checked first.
bool ListView::isOwnKey(int key) const
{
    return key == Qt::Key_F5;
}

void ListView::ownKeyPressed(int /*key*/)
{
    refresh();
}

/// A focus proxy would take each Tab that comes into the view, and the filters would never be reached.
void ListView::focusInEvent(QFocusEvent *event)
{
    m_grid->setFocus(event->reason());
}

bool ListView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(static_cast<QKeyEvent *>(event)->key()))
        event->accept();
    return QWidget::event(event);
}

void ListView::keyPressEvent(QKeyEvent *event)
{
    if (isOwnKey(event->key()))
        ownKeyPressed(event->key());
    else
        QWidget::keyPressEvent(event);
}

} // namespace ebtq
