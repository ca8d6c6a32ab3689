#include "screens/controls/flex_grid_columns.h"

#include "library/controls/flex_grid.h"
#include "screens/controls/flex_grid_delegate.h"
#include "screens/controls/flex_grid_model.h"

#include <QEvent>
#include <QHeaderView>
#include <QMenu>
#include <QTableView>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int measuredRows = 60;
constexpr int widestFit = 260;
constexpr int narrowestColumn = 16;

} // namespace

FlexGridColumns::FlexGridColumns(VSFlexGrid &grid, FlexGridModel &model, QTableView &view)
    : QObject(&view)
    , m_grid(grid)
    , m_model(model)
    , m_view(view)
{
    header().setSectionsMovable(true);
    watch(header());
    connect(&header(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { resized(column, width); });
    connect(&header(), &QHeaderView::sectionMoved, this, &FlexGridColumns::moved);
}

void FlexGridColumns::watch(QHeaderView &header)
{
    header.setHighlightSections(false);
    header.setSectionsClickable(false);
    header.setMinimumSectionSize(narrowestColumn);
    header.setContextMenuPolicy(Qt::CustomContextMenu);
    header.viewport()->installEventFilter(this);
    connect(&header, &QWidget::customContextMenuRequested, this, [this, &header](const QPoint &place) {
        QMenu *menu = makeMenu().release();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(header.viewport()->mapToGlobal(place));
    });
}

QHeaderView &FlexGridColumns::header() const
{
    return *m_view.horizontalHeader();
}

double FlexGridColumns::scale() const
{
    return m_view.logicalDpiX() / 96.0;
}

void FlexGridColumns::follow()
{
    const auto following = m_exchange.follow();
    if (m_format != m_grid.FormatString()) {
        m_format = m_grid.FormatString();
        fit();
    }
    for (int column = 0; column < m_model.columnCount(); ++column)
        m_view.setColumnHidden(column, !m_grid.isColumnInSight(column));
    followOrder();
    layOut();
}

void FlexGridColumns::followOrder()
{
    const std::vector<int> &order = m_grid.columnOrder();
    const int count = std::min(static_cast<int>(order.size()), m_model.columnCount());
    for (int place = 0; place < count; ++place) {
        const int now = header().visualIndex(order[static_cast<size_t>(place)]);
        if (now != place)
            header().moveSection(now, place);
    }
}

/// Columns that exceed the window's width shrink in proportion to what they can spare; spare width is shared.
/// While the user drags the edge of one, the others keep their widths.
void FlexGridColumns::layOut()
{
    if (m_exchange.isTaking())
        return;
    const auto following = m_exchange.follow();
    std::vector<Width> widths;
    Width all;
    for (int column = 0; column < m_model.columnCount(); ++column) {
        const Width width = m_view.isColumnHidden(column) ? Width() : widthOf(column);
        widths.push_back(width);
        all = {all.wish + width.wish, all.spare + width.spare, all.grow + width.grow};
    }
    const int missing = std::clamp(all.wish - m_view.viewport()->width(), 0, all.spare);
    const int surplus = std::max(m_view.viewport()->width() - all.wish, 0);
    int grown = 0;
    for (int column = 0; column < m_model.columnCount(); ++column) {
        const Width width = widths[static_cast<size_t>(column)];
        const int less = all.spare == 0 ? 0 : (width.spare * missing + all.spare - 1) / all.spare;
        const int before = all.grow == 0 ? 0 : surplus * grown / all.grow;
        grown += width.grow;
        const int more = all.grow == 0 ? 0 : surplus * grown / all.grow - before;
        if (!m_view.isColumnHidden(column))
            m_view.setColumnWidth(column, width.wish - less + more);
    }
    Q_EMIT laidOut();
}

/// A column without a caption holds icons, which need no more room.
FlexGridColumns::Width FlexGridColumns::widthOf(int column) const
{
    const auto at = static_cast<size_t>(column);
    const int pixels = qRound(m_grid.ColWidth(column) * scale());
    if (!m_grid.isWidthGiven(column) || at >= m_neededWidths.size())
        return {pixels, 0, 0};
    const bool hasText = !m_model.headerData(column, Qt::Horizontal).toString().isEmpty();
    return {std::max(pixels, m_neededWidths[at]), std::max(0, pixels - m_neededWidths[at]),
            hasText ? pixels : 0};
}

void FlexGridColumns::fit()
{
    m_neededWidths.clear();
    for (int column = 0; column < m_model.columnCount(); ++column)
        m_neededWidths.push_back(neededWidth(column));
}

/// The last row, too: the sum of all is the longest number of its column.
int FlexGridColumns::neededWidth(int column) const
{
    int width =
        header().fontMetrics().horizontalAdvance(m_model.headerData(column, Qt::Horizontal).toString());
    width += width / 10; // the header is bold
    if (m_model.headerData(column, Qt::Horizontal, Qt::DecorationRole).isValid())
        width = std::max(width, FlexGridDelegate::pictureSize);
    width += 2 * FlexGridDelegate::padding + 2;
    const int rows = m_model.rowCount();
    const auto measure = [&](int row) {
        width =
            std::max(width, FlexGridDelegate::neededWidth(m_model.index(row, column), m_view.fontMetrics()));
    };
    for (int row = 0; row < std::min(rows, measuredRows); ++row)
        measure(row);
    if (rows > 0)
        measure(rows - 1);
    return std::min(width, qRound(widestFit * scale()));
}

// What a person does

void FlexGridColumns::resized(int column, int width)
{
    if (m_exchange.isFollowing() || m_model.isChanging() || width <= 0)
        return;
    const auto resized = m_exchange.take();
    m_grid.setColWidth(column, std::max(1, qRound(width / scale())));
    m_isUnsaved = true;
    Q_EMIT laidOut();
}

void FlexGridColumns::moved()
{
    if (m_exchange.isFollowing() || m_model.isChanging())
        return;
    std::vector<int> order;
    for (int place = 0; place < m_model.columnCount(); ++place)
        order.push_back(header().logicalIndex(place));
    m_grid.setColumnOrder(order);
    m_grid.reportLayoutChanged();
}

/// Dragging an edge is one change, however many widths it passes. It also ends when the header is hidden by
/// it.
bool FlexGridColumns::eventFilter(QObject *watched, QEvent *event)
{
    const bool isEnd = event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::Hide;
    if (isEnd && std::exchange(m_isUnsaved, false))
        m_grid.reportLayoutChanged();
    return QObject::eventFilter(watched, event);
}

int FlexGridColumns::countInSight() const
{
    int count = 0;
    for (int column = 0; column < m_grid.Cols(); ++column)
        count += m_grid.isColumnInSight(column) ? 1 : 0;
    return count;
}

void FlexGridColumns::setShown(int column, bool shown)
{
    m_grid.setColWidth(column, shown ? m_grid.widthWhenShown(column) : 0);
    m_grid.reportLayoutChanged();
}

/// In visible order. Columns that the screen itself hides are not offered, and the last one cannot be hidden:
/// without a header there is no menu to show it again.
std::unique_ptr<QMenu> FlexGridColumns::makeMenu()
{
    auto menu = std::make_unique<QMenu>(&m_view);
    menu->setObjectName(u"ColumnMenu"_s);
    for (const int column : m_grid.columnOrder()) {
        const QString caption = m_model.headerData(column, Qt::Horizontal).toString();
        if (m_grid.ColHidden(column) || caption.isEmpty())
            continue;
        QAction *action = menu->addAction(QString(caption).replace(u'&', u"&&"_s));
        action->setCheckable(true);
        action->setChecked(m_grid.isColumnInSight(column));
        action->setEnabled(!action->isChecked() || countInSight() > 1);
        connect(action, &QAction::triggered, this, [this, column](bool shown) { setShown(column, shown); });
    }
    menu->addSeparator();
    connect(menu->addAction(u"恢复默认布局"_s), &QAction::triggered, this, [this] {
        m_grid.resetColumns();
        m_grid.reportLayoutChanged();
    });
    return menu;
}

} // namespace ebtq
