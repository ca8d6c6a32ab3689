#include "screens/listings/listing_detail_view.h"

#include "library/listings/listing_detail.h"
#include "library/listings/listing_detail_fields.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/display_field_view.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/controls/tab_strip_view.h"
#include "screens/controls/text_box_view.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace ebtq {

namespace {

/// Captions and fields stand in pairs, six of them side by side on both tabs, so that they line up.
constexpr int pairs = 6;
constexpr int captionCharacters = 4;
constexpr int boxLines = 2;

enum class Ink : quint8 { Plain, Sale, Rent };
/// The caption of some fields is the unit of the field to their left and stands close to it.
enum class Caption : quint8 { Own, UnitOfTheFieldBefore };

struct Place
{
    int number;
    int row;
    int pair;
    int width = 1; ///< in pairs
    Ink ink = Ink::Plain;
    Caption caption = Caption::Own;
};

constexpr Place listingPlaces[] = {
    {0, 0, 0},  {1, 0, 1},  {3, 0, 2},  {4, 0, 3},     {21, 0, 4},    {7, 0, 5},     {5, 1, 0},
    {17, 1, 1}, {22, 1, 2}, {40, 1, 3}, {39, 1, 4},    {44, 1, 5},    {45, 2, 0},    {46, 2, 1},
    {47, 2, 2}, {34, 2, 3}, {11, 2, 4}, {13, 2, 5},    {15, 3, 0},    {8, 3, 1},     {12, 3, 2},
    {9, 3, 3},  {6, 3, 4},  {41, 3, 5}, {48, 4, 0, 2}, {42, 4, 2, 2}, {43, 4, 4, 2},
};

constexpr Place ownerPlaces[] = {
    {2, 0, 0, 2},
    {14, 0, 2},
    {23, 0, 3},
    {24, 0, 4},
    {37, 0, 5},
    {25, 1, 0, 1, Ink::Sale},
    {26, 1, 1, 1, Ink::Sale, Caption::UnitOfTheFieldBefore},
    {27, 1, 2, 1, Ink::Plain, Caption::UnitOfTheFieldBefore},
    {28, 1, 3},
    {50, 1, 4},
    {51, 1, 5},
    {29, 2, 0, 1, Ink::Rent},
    {30, 2, 1, 1, Ink::Rent, Caption::UnitOfTheFieldBefore},
    {31, 2, 2, 1, Ink::Plain, Caption::UnitOfTheFieldBefore},
    {32, 2, 3},
    {52, 2, 4},
    {53, 2, 5},
};
constexpr int boxesRow = 3;

QString inkName(Ink ink)
{
    return ink == Ink::Sale ? QStringLiteral("sale") : ink == Ink::Rent ? QStringLiteral("rent") : QString();
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
        grid->setColumnStretch(2 * pair + 1, 1);
    }
    return grid;
}

void place(QGridLayout &grid, QLabel &caption, QWidget &field, int row, int pair, int width)
{
    grid.addWidget(&caption, row, 2 * pair);
    grid.addWidget(&field, row, 2 * pair + 1, 1, 2 * width - 1);
}

} // namespace

ListingDetailView::ListingDetailView(ListingDetail &detail, QWidget *keyScope, QWidget *parent)
    : QWidget(parent)
    , m_detail(detail)
    , m_tabs(new TabStripView(detail.qzVSTabCtl1(), keyScope, this))
{
    setProperty("kind", QStringLiteral("page"));
    setAttribute(Qt::WA_StyledBackground);
    setFocusProxy(m_tabs);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_tabs);
    addPanels();
}

void ListingDetailView::addPanels()
{
    addFields(ListingTab);
    addFields(OwnerTab);
    addGrid(FollowUpsTab, m_detail.VsGj(), QStringLiteral("没有跟进记录"));
    addGrid(CustomersTab, m_detail.VsP(), QStringLiteral("没有匹配的客源"));
    addPictures();
}

QWidget *ListingDetailView::addPanel(int tab)
{
    auto *panel = new QWidget(this);
    panel->setProperty("kind", QStringLiteral("tabPanel"));
    panel->setAttribute(Qt::WA_StyledBackground);
    layout()->addWidget(panel);
    m_panels.append(panel);
    bindControl(m_detail.pnlTab(tab - 1), *panel);
    return panel;
}

QSize ListingDetailView::minimumSizeHint() const
{
    QSize needed;
    for (const QWidget *panel : m_panels)
        needed = needed.expandedTo(panel->minimumSizeHint());
    return {needed.width(), needed.height() + m_tabs->sizeHint().height()};
}

void ListingDetailView::addFields(int tab)
{
    QWidget *panel = addPanel(tab);
    QGridLayout *grid = makeGrid(*panel);
    const std::span<const Place> places =
        tab == ListingTab ? std::span<const Place>(listingPlaces) : ownerPlaces;
    for (const Place &each : places) {
        qzTxt_S &field = m_detail.qzFcTxt(each.number);
        auto *view = new DisplayFieldView(field, panel);
        view->setProperty("ink", inkName(each.ink));
        QLabel *caption = makeCaption(field, *view, panel);
        if (each.caption == Caption::UnitOfTheFieldBefore)
            caption->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        place(*grid, *caption, *view, each.row, each.pair, each.width);
    }
    if (tab == OwnerTab)
        addBoxes(*grid, *panel);
    grid->setRowStretch(grid->rowCount(), 1);
}

void ListingDetailView::addBoxes(QGridLayout &grid, QWidget &panel)
{
    const int width = pairs / static_cast<int>(detailBoxes().size());
    for (const DetailBox &each : detailBoxes()) {
        TextBox &box = m_detail.Txt(each.number);
        auto *view = new TextAreaView(box, &panel);
        view->setReadOnly(true);
        view->setFixedHeight(boxLines * view->fontMetrics().lineSpacing() + 12);
        QLabel *caption = makeCaption(box, *view, &panel);
        place(grid, *caption, *view, boxesRow, each.number * width, width);
    }
}

/// "Nothing there" is said of a load that worked, never of a grid that a failure left empty.
void ListingDetailView::addGrid(int tab, VSFlexGrid &grid, const QString &emptyHint)
{
    QWidget *panel = addPanel(tab);
    auto *column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    auto *view = new FlexGridView(grid, panel);
    column->addWidget(view);
    connect(&m_detail, &ListingDetail::TabShown, view, [=](int shown, bool done) {
        if (shown == tab)
            view->setEmptyHint(done ? emptyHint : QString());
    });
}

void ListingDetailView::addPictures()
{
    QWidget *panel = addPanel(PicturesTab);
    auto *hint = new QLabel(panel);
    connect(&m_detail, &ListingDetail::TabShown, hint, [this, hint](int tab, bool done) {
        if (tab == PicturesTab)
            hint->setText(done ? m_detail.picturesText() : QString());
    });
    hint->setProperty("kind", QStringLiteral("hint"));
    hint->setAlignment(Qt::AlignCenter);
    auto *column = new QVBoxLayout(panel);
    column->addWidget(hint);
}

} // namespace ebtq
