#include "screens/lists/list_view.h"

#include "screens/controls/check_box_view.h"
#include "screens/controls/combo_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/field_view.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/controls/search_box_view.h"
#include "screens/lists/filter_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int periodCharacters = 5;
constexpr int searchCharacters = 5;
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

/// What stays together where the row folds.
QWidget *together(std::initializer_list<QWidget *> widgets, FilterBar &bar)
{
    auto *group = new QWidget(&bar);
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins({});
    row->setSpacing(4);
    for (QWidget *widget : widgets) {
        if (auto *caption = qobject_cast<QLabel *>(widget))
            caption->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        row->addWidget(widget, qobject_cast<SearchBoxView *>(widget) ? 1 : 0);
    }
    return group;
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
    auto *bar = new FilterBar(this);
    bar->setObjectName(u"Filters"_s);
    addFields(*bar);
    if (m_module.hasPeriods())
        addPeriods(*bar);
    addKinds(*bar);
    addSearch(*bar);
    column()->addWidget(bar);
}

void ListView::addFields(FilterBar &bar)
{
    for (const ListLook::Field &filter : m_look.fields) {
        qzTxt_S &field = m_module.qzTxt(filter.number);
        auto *view = new FieldView(field, &bar);
        fixWidth(*view, filter.characters);
        view->setProperty("kind", u"filter"_s);
        view->setEnter(FieldView::Enter::Confirms);
        connect(view, &FieldView::confirmed, this, &ListView::refresh);
        bar.addFilter(together({makeCaption(field, *view, &bar), view}, bar),
                      [&field] { return !field.Text().isEmpty(); });
        connect(&field, &qzTxt_S::FieldChange, &bar, &FilterBar::followUse);
        connect(&field, &Control::focusRequested, &bar, [&bar, view] { bar.reveal(*view); });
        addKey(bar, *view, filter.key);
    }
}

/// The captions stay as they are; the letter is told under the mouse.
void ListView::addKey(FilterBar &bar, QWidget &field, char16_t letter)
{
    auto *key = new QShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(letter)), this);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    connect(key, &QShortcut::activated, &bar, [&bar, &field] { bar.reveal(field); });
    field.setToolTip(key->key().toString());
}

void ListView::addPeriods(FilterBar &bar)
{
    XPCombo &combo = m_module.XPCmb();
    auto *view = new ComboView(combo, &bar);
    fixWidth(*view, periodCharacters);
    connect(view, &ComboView::confirmed, this, &ListView::refresh);
    bar.addFilter(together({makeCaption(combo, *view, &bar), view}, bar),
                  [&combo] { return !combo.Text().isEmpty(); });
    connect(&combo, &XPCombo::Change, &bar, &FilterBar::followUse);
    addKey(bar, *view, m_look.periodKey);
}

/// Both ticks in one item: where the row folds, they are read together.
void ListView::addKinds(FilterBar &bar)
{
    QWidget *ticks[2];
    for (const int number : {0, 1}) {
        CheckBox &box = m_module.Chk(number);
        auto *view = new CheckBoxView(box, &bar, m_look.kindKeys[static_cast<size_t>(number)]);
        connect(view, &QCheckBox::clicked, this, &ListView::refresh);
        ticks[number] = view;
    }
    bar.addPinned(together({ticks[0], ticks[1]}, bar));
}

/// The tick folds with its box.
void ListView::addSearch(FilterBar &bar)
{
    auto *view = new SearchBoxView(m_module.SearchBox1(), &bar);
    view->setPlaceholderText(u"查找"_s); // fits where the line leaves little room
    view->setAccessibleName(u"列表中查找"_s);
    if (!m_look.isFoundByHost)
        view->takeFindKey();
    view->setMinimumWidth(widthOf(*view, searchCharacters));
    view->setMaximumWidth(widthOf(*view, searchCharactersAtMost));
    view->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // as wide as the line leaves it
    QWidget *caption = makeCaption(m_module.lblSearch(), *view, &bar);
    bar.addPinned(together({caption, view, new CheckBoxView(m_module.ChkFind(), &bar, u'I')}, bar));
}

FlexGridView *ListView::makeGrid()
{
    m_grid = new FlexGridView(m_module.VS(), this);
    m_grid->setAccessibleName(m_module.title().isEmpty() ? u"列表"_s : m_module.title());
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
