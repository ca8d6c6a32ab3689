#include "screens/controls/flex_grid_view.h"

#include "library/controls/flex_grid.h"
#include "library/controls/mouse_wheel.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/flex_grid_model.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace ebtq {

namespace {

constexpr int usualRowHeight = 28;
constexpr int spaceAroundText = 9;
constexpr int measuredRows = 60;
constexpr int widestFit = 260;
constexpr int wheelStep = 120;

struct Bit
{
    int qt;
    int grid;
};

short gridBits(int flags, std::initializer_list<Bit> bits)
{
    int result = 0;
    for (const Bit &bit : bits)
        result |= flags & bit.qt ? bit.grid : 0;
    return static_cast<short>(result);
}

} // namespace

FlexGridView::FlexGridView(VSFlexGrid &grid, QWidget *parent)
    : QTableView(parent)
    , m_grid(grid)
    , m_model(new FlexGridModel(grid, this))
    , m_delegate(new FlexGridDelegate(*this))
{
    bindControl(grid, *this);
    setModel(m_model);
    setItemDelegate(m_delegate);
    setUpLook();
    setUpHeaders();
    follow();
}

void FlexGridView::setUpLook()
{
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setFrameShape(QFrame::NoFrame);
}

void FlexGridView::setUpHeaders()
{
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setMinimumSectionSize(16);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { columnResized(column, width); });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &FlexGridView::reportTopRow);
}

void FlexGridView::follow()
{
    connect(&m_grid, &Control::stateChanged, this, &FlexGridView::followLook);
    connect(&m_grid, &VSFlexGrid::columnsChanged, this, &FlexGridView::followColumns);
    connect(&m_grid, &VSFlexGrid::currentChanged, this, &FlexGridView::followCurrent);
    connect(&m_grid, &VSFlexGrid::topRowChanged, this, &FlexGridView::followTopRow);
    connect(m_model, &QAbstractItemModel::modelReset, this, &FlexGridView::followRows);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &FlexGridView::followCurrent);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &FlexGridView::followCurrent);
    followLook();
    followRows();
}

void FlexGridView::followLook()
{
    m_delegate->setStriped(m_grid.BackColorAlternate() != 0);
    verticalHeader()->setDefaultSectionSize(
        std::max(qRound(usualRowHeight * scale()), fontMetrics().height() + spaceAroundText));
    viewport()->update();
}

void FlexGridView::followRows()
{
    fitColumns();
    followColumns();
    followTopRow();
    followCurrent();
}

void FlexGridView::followColumns()
{
    const QScopedValueRollback following(m_following, true);
    if (m_format != m_grid.FormatString()) {
        m_format = m_grid.FormatString();
        m_formatWidths.clear();
        for (int column = 0; column < m_grid.Cols(); ++column)
            m_formatWidths.push_back(m_grid.ColWidth(column));
        fitColumns();
    }
    for (int column = 0; column < m_model->columnCount(); ++column)
        setColumnHidden(column, m_grid.ColHidden(column));
    layOutColumns();
    followColumnOrder();
}

void FlexGridView::followColumnOrder()
{
    const std::vector<int> &order = m_grid.columnOrder();
    const int count = std::min(static_cast<int>(order.size()), m_model->columnCount());
    for (int place = 0; place < count; ++place) {
        const int now = horizontalHeader()->visualIndex(order[static_cast<size_t>(place)]);
        if (now != place)
            horizontalHeader()->moveSection(now, place);
    }
}

/// What the columns wish beyond the window's width they give up in proportion to what they can spare.
void FlexGridView::layOutColumns()
{
    const QScopedValueRollback following(m_following, true);
    int wished = 0;
    int spared = 0;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const Width width = isColumnHidden(column) ? Width{} : widthOf(column);
        wished += width.wish;
        spared += width.spare;
    }
    const int missing = std::clamp(wished - viewport()->width(), 0, spared);
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const Width width = widthOf(column);
        setColumnWidth(column,
                       width.wish - (spared == 0 ? 0 : (width.spare * missing + spared - 1) / spared));
    }
}

FlexGridView::Width FlexGridView::widthOf(int column) const
{
    const auto at = static_cast<size_t>(column);
    const int given = m_grid.ColWidth(column);
    const int pixels = qRound(given * scale());
    const bool untouched = at < m_formatWidths.size() && m_formatWidths[at] == given;
    if (!untouched || at >= m_neededWidths.size())
        return {pixels, 0};
    return {std::max(pixels, m_neededWidths[at]), std::max(0, pixels - m_neededWidths[at])};
}

void FlexGridView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    layOutColumns();
}

/// Looks at the first rows only: the cost must not grow with the list.
void FlexGridView::fitColumns()
{
    m_neededWidths.resize(static_cast<size_t>(m_model->columnCount()), 0);
    for (int column = 0; column < m_model->columnCount(); ++column) {
        int &width = m_neededWidths[static_cast<size_t>(column)];
        width = std::max(width, neededWidth(column));
    }
}

int FlexGridView::neededWidth(int column) const
{
    int width = horizontalHeader()->fontMetrics().horizontalAdvance(
        m_model->headerData(column, Qt::Horizontal).toString());
    width += width / 10; // the header is bold
    if (m_model->headerData(column, Qt::Horizontal, Qt::DecorationRole).isValid())
        width = std::max(width, FlexGridDelegate::pictureSize);
    const int rows = std::min(m_model->rowCount(), measuredRows);
    for (int row = 0; row < rows; ++row)
        width =
            std::max(width, fontMetrics().horizontalAdvance(m_model->index(row, column).data().toString()));
    return std::min(width + 2 * FlexGridDelegate::padding + 2, qRound(widestFit * scale()));
}

void FlexGridView::columnResized(int column, int width)
{
    if (!m_following && !m_model->isChanging() && width > 0)
        m_grid.setColWidth(column, std::max(1, qRound(width / scale())));
}

void FlexGridView::followCurrent()
{
    const QScopedValueRollback following(m_following, true);
    const int position = m_grid.Row() < 0 ? -1 : m_grid.positionInSight(m_grid.Row());
    const QModelIndex index = m_model->index(position, std::max(0, m_grid.Col()));
    if (index == currentIndex())
        return;
    if (index.isValid())
        setCurrentIndex(index);
    else
        selectionModel()->clear();
    viewport()->update();
}

/// Moves of the user go to the grid. What the view does by itself while rows come and go is none.
void FlexGridView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    if (!m_following && !m_model->isChanging() && current.isValid())
        m_grid.setCurrent(m_grid.rowInSight(current.row()), current.column());
}

void FlexGridView::followTopRow()
{
    const QScopedValueRollback following(m_following, true);
    updateGeometries(); // the scroll bar's range, which is otherwise set when the view is next painted
    const int position = m_grid.positionInSight(m_grid.TopRow());
    if (position >= 0)
        verticalScrollBar()->setValue(position);
}

void FlexGridView::reportTopRow(int position)
{
    if (!m_following && !m_model->isChanging())
        m_grid.setTopRow(m_grid.rowInSight(position));
}

void FlexGridView::setColumnLook(int column, const ColumnLook &look)
{
    m_delegate->setColumnLook(column, look);
}

void FlexGridView::setEmptyHint(const QString &text)
{
    m_emptyHint = text;
    viewport()->update();
}

void FlexGridView::keyboardSearch(const QString &) {}

void FlexGridView::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    m_grid.reportFocus();
}

void FlexGridView::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentIndex().isValid())
        m_grid.reportDoubleClick();
    else
        QTableView::keyPressEvent(event);
}

void FlexGridView::mousePressEvent(QMouseEvent *event)
{
    QTableView::mousePressEvent(event);
    const QPointF place = event->position();
    m_grid.reportMouseDown(
        gridBits(event->button(), {{Qt::LeftButton, 1}, {Qt::RightButton, 2}, {Qt::MiddleButton, 4}}),
        gridBits(event->modifiers(),
                 {{Qt::ShiftModifier, 1}, {Qt::ControlModifier, 2}, {Qt::AltModifier, 4}}),
        static_cast<float>(place.x()), static_cast<float>(place.y()));
}

void FlexGridView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid())
        m_grid.reportDoubleClick();
}

/// A wheel that turns finely sends parts of a step; they add up.
void FlexGridView::wheelEvent(QWheelEvent *event)
{
    MouseWheel *wheel = m_wheel ? m_wheel() : nullptr;
    const int angle = event->angleDelta().y();
    if (!wheel || wheel->grid() != &m_grid || angle == 0) {
        QTableView::wheelEvent(event);
        return;
    }
    m_wheelAngle += angle;
    const int steps = m_wheelAngle / wheelStep;
    m_wheelAngle -= steps * wheelStep;
    if (steps != 0)
        wheel->turn(-steps);
    event->accept();
}

void FlexGridView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (m_emptyHint.isEmpty() || m_model->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(look::tokens().muted);
    painter.drawText(viewport()->rect(), Qt::AlignCenter, m_emptyHint);
}

void FlexGridView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        followLook();
}

} // namespace ebtq
