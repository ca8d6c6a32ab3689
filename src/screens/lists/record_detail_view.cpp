#include "screens/lists/record_detail_view.h"

#include "library/lists/record_detail.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/display_field_view.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/controls/tab_strip_view.h"
#include "screens/controls/text_box_view.h"
#include "screens/look/look.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int pairs = 6;
constexpr int captionCharacters = 4;
constexpr int boxLines = 2;

QString inkName(DetailPlace::Ink ink)
{
    switch (ink) {
    case DetailPlace::Ink::Sale:
        return u"sale"_s;
    case DetailPlace::Ink::Rent:
        return u"rent"_s;
    case DetailPlace::Ink::Plain:
    case DetailPlace::Ink::Number:
        break;
    }
    return {};
}

QGridLayout *makeGrid(QWidget &panel)
{
    auto *grid = new QGridLayout(&panel);
    grid->setContentsMargins(12, 8, 12, 8);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(5);
    for (int pair = 0; pair < pairs; ++pair) {
        grid->setColumnMinimumWidth(2 * pair,
                                    captionCharacters * panel.fontMetrics().horizontalAdvance(u'房'));
        grid->setColumnStretch(2 * pair + 1, pair == 0 ? 6 : 5); // the first has the record's number
    }
    return grid;
}

void place(QGridLayout &grid, QLabel &caption, QWidget &field, int row, int pair, int width)
{
    grid.addWidget(&caption, row, 2 * pair);
    grid.addWidget(&field, row, 2 * pair + 1, 1, 2 * width - 1);
}

} // namespace

RecordDetailView::RecordDetailView(RecordDetail &detail, QWidget *keyScope, QWidget *parent)
    : QWidget(parent)
    , m_detail(detail)
    , m_tabs(new TabStripView(detail.qzVSTabCtl1(), keyScope, this))
    , m_folding(new QToolButton(this))
    , m_panelArea(new QWidget(this))
{
    setProperty("kind", u"page"_s);
    setAttribute(Qt::WA_StyledBackground);
    setFocusProxy(m_tabs);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto *strip = new QWidget(this);
    strip->setProperty("kind", u"strip"_s);
    strip->setAttribute(Qt::WA_StyledBackground);
    auto *row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 8, 0);
    row->addWidget(m_tabs, 1);
    row->addWidget(m_folding);
    column->addWidget(strip);
    auto *panels = new QVBoxLayout(m_panelArea);
    panels->setContentsMargins({});
    column->addWidget(m_panelArea, 1);
    m_folding->setObjectName(u"FoldDetail"_s);
    m_folding->setFocusPolicy(Qt::NoFocus);
    connect(m_folding, &QToolButton::clicked, this, [this] { Q_EMIT foldingWanted(!isFolded()); });
    connect(m_tabs, &QTabBar::tabBarClicked, this, [this] { Q_EMIT foldingWanted(false); });
    setFolded(false);
}

bool RecordDetailView::isFolded() const
{
    return m_panelArea->isHidden();
}

void RecordDetailView::setFolded(bool folded)
{
    m_panelArea->setVisible(!folded);
    m_folding->setIcon(look::icon(folded ? u"go-up"_s : u"go-down"_s, &look::Tokens::muted));
    m_folding->setToolTip(folded ? u"展开 (Ctrl+D)"_s : u"折叠 (Ctrl+D)"_s);
    m_folding->setAccessibleName(m_folding->toolTip());
    setMaximumHeight(folded ? minimumSizeHint().height() : QWIDGETSIZE_MAX);
    updateGeometry();
}

QWidget *RecordDetailView::addPanel(int tab)
{
    auto *panel = new QWidget(m_panelArea);
    panel->setProperty("kind", u"tabPanel"_s);
    panel->setAttribute(Qt::WA_StyledBackground);
    m_panelArea->layout()->addWidget(panel);
    m_panels.append(panel);
    bindControl(m_detail.pnlTab(tab - 1), *panel);
    return panel;
}

QSize RecordDetailView::minimumSizeHint() const
{
    QSize needed;
    for (const QWidget *panel : isFolded() ? QList<QWidget *>() : m_panels)
        needed = needed.expandedTo(panel->minimumSizeHint());
    return {needed.width(), needed.height() + m_tabs->sizeHint().height()};
}

void RecordDetailView::addFields(int tab, std::span<const DetailPlace> places, int boxesRow)
{
    QWidget *panel = addPanel(tab);
    QGridLayout *grid = makeGrid(*panel);
    for (const DetailPlace &each : places)
        addField(*grid, *panel, each);
    if (boxesRow >= 0)
        addBoxes(*grid, *panel, boxesRow);
    grid->setRowStretch(grid->rowCount(), 1);
}

void RecordDetailView::addField(QGridLayout &grid, QWidget &panel, const DetailPlace &each)
{
    qzTxt_S &field = m_detail.field(each.number);
    auto *view = new DisplayFieldView(field, &panel);
    view->setProperty("ink", inkName(each.ink));
    if (each.ink != DetailPlace::Ink::Plain)
        view->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QLabel *caption = makeCaption(field, *view, &panel);
    if (each.caption == DetailPlace::Caption::UnitOfTheFieldBefore)
        caption->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    place(grid, *caption, *view, each.row, each.pair, each.width);
}

void RecordDetailView::addBoxes(QGridLayout &grid, QWidget &panel, int row)
{
    const int width = pairs / static_cast<int>(m_detail.boxes().size());
    int pair = 0;
    for (TextBox *box : m_detail.boxes()) {
        auto *view = new TextAreaView(*box, &panel);
        view->setReadOnly(true);
        view->setFixedHeight(boxLines * view->fontMetrics().lineSpacing() + 12);
        place(grid, *makeCaption(*box, *view, &panel), *view, row, pair, width);
        pair += width;
    }
}

/// "Nothing there" is said of a load that worked, never of a grid that a failure left empty.
QHBoxLayout *RecordDetailView::addGrid(int tab, VSFlexGrid &grid, const QString &emptyHint)
{
    QWidget *panel = addPanel(tab);
    auto *row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    auto *view = new FlexGridView(grid, panel);
    view->setAccessibleName(m_detail.qzVSTabCtl1().tabs()[static_cast<size_t>(tab) - 1].caption);
    row->addWidget(view, 1);
    connect(&m_detail, &RecordDetail::TabShown, view, [=](int shown, bool done) {
        if (shown == tab)
            view->setEmptyHint(done ? emptyHint : QString());
    });
    return row;
}

void RecordDetailView::addFollowUps(int tab, VSFlexGrid &grid)
{
    addGrid(tab, grid, u"没有跟进记录"_s);
}

void RecordDetailView::addMatching(int tab, VSFlexGrid &grid, const QString &emptyHint,
                                   const std::function<void()> &showReasons)
{
    QHBoxLayout *row = addGrid(tab, grid, emptyHint);
    auto *button = new QPushButton(u"为什么(&W)"_s, row->parentWidget());
    button->setObjectName(u"WhyMatch"_s);
    connect(button, &QPushButton::clicked, this, showReasons);
    row->addWidget(button, 0, Qt::AlignTop);
    row->setContentsMargins(0, 0, 8, 0);
}

} // namespace ebtq
