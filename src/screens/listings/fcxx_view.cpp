#include "screens/listings/fcxx_view.h"

#include "library/listings/fcxx.h"
#include "library/listings/fcxx_tables.h"
#include "screens/controls/check_box_view.h"
#include "screens/controls/combo_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/field_view.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/controls/flow_layout.h"
#include "screens/controls/grid_menu.h"
#include "screens/controls/search_box_view.h"
#include "screens/controls/tool_bar_view.h"
#include "screens/listings/listing_detail_view.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

namespace ebtq {

namespace {

const QString refreshKey = QStringLiteral("refresh");

/// The filter fields in reading order, with the width of their text in Chinese characters.
struct FieldWidth
{
    int number;
    int characters;
};
constexpr FieldWidth filterFields[] = {{0, 4}, {7, 5}, {1, 4}, {3, 3}, {4, 4}, {5, 4}};
constexpr int windowCharacters = 5;
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

FcxxView::FcxxView(Fcxx &module, QWidget *parent)
    : QWidget(parent)
    , m_module(module)
{
    setObjectName(QStringLiteral("Fcxx"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    addToolBar();
    addFilterRow();
    addGrid();
    addMenu();
    addDetail();
    followKind();
    followOutcome();
}

void FcxxView::addToolBar()
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

void FcxxView::addFilterRow()
{
    auto *bar = new QWidget(this);
    bar->setProperty("kind", QStringLiteral("bar"));
    bar->setAttribute(Qt::WA_StyledBackground);
    auto *row = new FlowLayout(bar);
    row->setContentsMargins(12, 6, 12, 6);
    row->setSpacing(8);
    addFields(*row, bar);
    addWindow(*row, bar);
    addKinds(*row, bar);
    addSearch(*row, bar);
    layout()->addWidget(bar);
}

void FcxxView::addFields(FlowLayout &row, QWidget *parent)
{
    for (const FieldWidth &filter : filterFields) {
        qzTxt_S &field = m_module.qzTxt(filter.number);
        auto *view = new FieldView(field, parent);
        fixWidth(*view, filter.characters);
        view->setEnter(FieldView::Enter::Confirms);
        connect(view, &FieldView::confirmed, this, &FcxxView::refresh);
        row.addLayout(captioned(makeCaption(field, *view, parent), view));
    }
}

void FcxxView::addWindow(FlowLayout &row, QWidget *parent)
{
    auto *view = new ComboView(m_module.XPCmb(), parent);
    fixWidth(*view, windowCharacters);
    connect(view, &ComboView::confirmed, this, &FcxxView::refresh);
    auto *caption = new QLabel(QStringLiteral("最近"), parent);
    caption->setProperty("kind", QStringLiteral("caption"));
    caption->setBuddy(view);
    view->setAccessibleName(caption->text());
    row.addLayout(captioned(caption, view));
}

/// Both ticks in one item: where the row folds, they are read together.
void FcxxView::addKinds(FlowLayout &row, QWidget *parent)
{
    auto *pair = new QHBoxLayout;
    pair->setSpacing(row.spacing());
    for (const auto &[number, letter] : {std::pair(0, u'S'), std::pair(1, u'Z')}) {
        CheckBox &box = m_module.Chk(number);
        auto *view = new CheckBoxView(box, parent, letter);
        connect(view, &QCheckBox::clicked, this, &FcxxView::refresh);
        connect(&box, &CheckBox::Click, this, &FcxxView::followKind);
        pair->addWidget(view);
    }
    row.addLayout(pair);
}

void FcxxView::addSearch(FlowLayout &row, QWidget *parent)
{
    auto *view = new SearchBoxView(m_module.SearchBox1(), parent);
    view->setPlaceholderText(QStringLiteral("在已加载的房源中查找"));
    view->setMinimumWidth(widthOf(*view, searchCharacters));
    view->setMaximumWidth(widthOf(*view, searchCharactersAtMost));
    view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    row.addLayout(captioned(makeCaption(m_module.lblSearch(), *view, parent), view));
    row.addWidget(new CheckBoxView(m_module.ChkFind(), parent, u'I'));
}

void FcxxView::addGrid()
{
    m_grid = new FlexGridView(m_module.VS(), this);
    m_grid->setColumnLook(ListingSalePrice, {&look::Tokens::salePrice});
    m_grid->setColumnLook(ListingRent, {&look::Tokens::rent});
    m_grid->setMouseWheel([this] { return m_module.mcMouseEvent(); });
}

/// Printing is the list's own operation; what else the menu does with the rows reports as the list does.
void FcxxView::addMenu()
{
    auto *menu = new GridMenu(*m_grid, m_module.VS(), m_module.NavToolbar1(), *m_toolBar, m_module.desktop());
    menu->setListName(QStringLiteral("房源信息列表"));
    menu->setPrint([this](bool bPrint, bool bSetup) { m_module.SelfPrint(bPrint, bSetup); });
    connect(menu, &GridMenu::message, &m_module, &Fcxx::Message);
    connect(menu, &GridMenu::failed, &m_module, [this](const QString &text) {
        Q_EMIT m_module.ErrMessage(text, FailureLevel, applicationTitle());
    });
}

void FcxxView::addDetail()
{
    m_detail = new ListingDetailView(m_module.detail(), this, this);
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
void FcxxView::followKind()
{
    const bool sale = m_module.Chk(0).Value() != 0;
    const bool rent = m_module.Chk(1).Value() != 0;
    const QString key = sale ? (rent ? QString() : QStringLiteral("buy"))
                             : (rent ? QStringLiteral("rent") : QStringLiteral("all"));
    m_toolBar->setCurrentKey(key);
}

/// "Nothing found" is said of a load that worked, never of a list that a failure left empty.
void FcxxView::followOutcome()
{
    connect(&m_module, &Fcxx::RefreshGetGridStatus, this,
            [this] { m_grid->setEmptyHint(QStringLiteral("没有符合条件的房源")); });
    connect(&m_module, &Fcxx::ErrMessage, this, [this] { m_grid->setEmptyHint(QString()); });
}

/// F5 and F6 are the program's keys for whatever page is open. While the keyboard is in this one, F5 is the
/// tool bar's command, which checks the field that is being filled in, and F6 stops at the detail on its way.
bool FcxxView::isOwnKey(int key) const
{
    return key == Qt::Key_F5 || (key == Qt::Key_F6 && !m_detail->isAncestorOf(QApplication::focusWidget()));
}

/// A focus proxy would take each Tab that comes into the view, and the filters would never be reached.
void FcxxView::focusInEvent(QFocusEvent *event)
{
    m_grid->setFocus(event->reason());
}

bool FcxxView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(static_cast<QKeyEvent *>(event)->key()))
        event->accept();
    return QWidget::event(event);
}

void FcxxView::keyPressEvent(QKeyEvent *event)
{
    if (!isOwnKey(event->key()))
        QWidget::keyPressEvent(event);
    else if (event->key() == Qt::Key_F5)
        refresh();
    else
        m_detail->setFocus(Qt::TabFocusReason);
}

void FcxxView::refresh()
{
    if (FieldView::checkFocused())
        m_module.NavToolbar1().press(refreshKey);
}

} // namespace ebtq
