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
    horizontalHeader()->viewport()->installEventFilter(this);
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
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this,
            [this] { m_currentSeen = isCurrentSeen(); });
    connect(m_model, &QAbstractItemModel::modelReset, this, &FlexGridView::followRows);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &FlexGridView::markCurrent);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &FlexGridView::markCurrent);
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

/// Rows that come into sight again must not push the row out of it that the user has before the eyes.
void FlexGridView::followRows()
{
    fitColumns();
    followColumns();
    followTopRow();
    markCurrent();
    if (m_currentSeen)
        showCurrent();
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

/// What the columns wish beyond the window's width they give up in proportion to what they can spare; what is
/// left of it they share. While the user draws the edge of one, the others stay under the mouse.
void FlexGridView::layOutColumns()
{
    if (m_resizedByUser)
        return;
    const QScopedValueRollback following(m_following, true);
    std::vector<Width> widths;
    Width all;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const Width width = isColumnHidden(column) ? Width() : widthOf(column);
        widths.push_back(width);
        all = {all.wish + width.wish, all.spare + width.spare, all.grow + width.grow};
    }
    const int missing = std::clamp(all.wish - viewport()->width(), 0, all.spare);
    const int surplus = std::max(viewport()->width() - all.wish, 0);
    int grown = 0;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const Width width = widths[static_cast<size_t>(column)];
        const int less = all.spare == 0 ? 0 : (width.spare * missing + all.spare - 1) / all.spare;
        const int before = all.grow == 0 ? 0 : surplus * grown / all.grow;
        grown += width.grow;
        const int more = all.grow == 0 ? 0 : surplus * grown / all.grow - before;
        if (!isColumnHidden(column))
            setColumnWidth(column, width.wish - less + more);
    }
}

/// A column without a caption holds icons, which need no more room.
FlexGridView::Width FlexGridView::widthOf(int column) const
{
    const auto at = static_cast<size_t>(column);
    const int given = m_grid.ColWidth(column);
    const int pixels = qRound(given * scale());
    const bool untouched = at < m_formatWidths.size() && m_formatWidths[at] == given;
    if (!untouched || at >= m_neededWidths.size())
        return {pixels, 0, 0};
    const bool hasText = !m_model->headerData(column, Qt::Horizontal).toString().isEmpty();
    return {std::max(pixels, m_neededWidths[at]), std::max(0, pixels - m_neededWidths[at]),
            hasText ? pixels : 0};
}

void FlexGridView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    layOutColumns();
}

/// Looks at the first rows only: the cost must not grow with the list.
void FlexGridView::fitColumns()
{
    m_neededWidths.clear();
    for (int column = 0; column < m_model->columnCount(); ++column)
        m_neededWidths.push_back(neededWidth(column));
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
    if (m_following || m_model->isChanging() || width <= 0)
        return;
    const QScopedValueRollback resized(m_resizedByUser, true);
    m_grid.setColWidth(column, std::max(1, qRound(width / scale())));
}

/// The row under a press of the mouse stays where it is: a double click must meet one row.
void FlexGridView::followCurrent()
{
    markCurrent();
    if (!m_movedByUser)
        showCurrent();
}

void FlexGridView::markCurrent()
{
    const QScopedValueRollback following(m_following, true);
    const int position = m_grid.Row() < 0 ? -1 : m_grid.positionInSight(m_grid.Row());
    const QModelIndex index = m_model->index(position, std::max(0, m_grid.Col()));
    if (index == currentIndex())
        return;
    setAutoScroll(false);
    if (index.isValid())
        setCurrentIndex(index);
    else
        selectionModel()->clear();
    setAutoScroll(true);
    viewport()->update();
}

/// The grid learns where the view has ended, or its next move would scroll back.
void FlexGridView::showCurrent()
{
    if (!currentIndex().isValid())
        return;
    {
        const QScopedValueRollback following(m_following, true);
        updateGeometries(); // as for the top row
        scrollTo(currentIndex());
    }
    reportTopRow(verticalScrollBar()->value());
}

bool FlexGridView::isCurrentSeen() const
{
    return currentIndex().isValid() && viewport()->rect().intersects(visualRect(currentIndex()));
}

/// Moves of the user go to the grid. What the view does by itself while rows come and go is none.
void FlexGridView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    if (m_following || m_model->isChanging() || !current.isValid())
        return;
    const QScopedValueRollback moved(m_movedByUser, true);
    m_grid.setCurrent(m_grid.rowInSight(current.row()), current.column());
}

void FlexGridView::followTopRow()
{
    const QScopedValueRollback following(m_following, true);
    updateGeometries(); // the scroll bar's range, which is otherwise set when the view is next painted
    if (const int top = m_grid.topInSight(); top >= 0)
        verticalScrollBar()->setValue(top);
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
    reportPress(*event, viewport()->mapTo(this, event->position()));
}

bool FlexGridView::eventFilter(QObject *watched, QEvent *event)
{
    const QWidget *header = horizontalHeader()->viewport();
    if (watched == header && event->type() == QEvent::MouseButtonPress) {
        const auto &press = static_cast<const QMouseEvent &>(*event);
        reportPress(press, header->mapTo(this, press.position()));
    }
    return QTableView::eventFilter(watched, event);
}

/// The header is a row of the grid: places count from the header's corner.
void FlexGridView::reportPress(const QMouseEvent &press, QPointF place)
{
    m_grid.reportMouseDown(
        gridBits(press.button(), {{Qt::LeftButton, 1}, {Qt::RightButton, 2}, {Qt::MiddleButton, 4}}),
        gridBits(press.modifiers(), {{Qt::ShiftModifier, 1}, {Qt::ControlModifier, 2}, {Qt::AltModifier, 4}}),
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
    // The wheel's positions count all rows, so hidden ones would take turns without a move.
    const bool hides = m_grid.visibleCount() < m_grid.Rows() - m_grid.FixedRows();
    if (!wheel || wheel->grid() != &m_grid || angle == 0 || hides) {
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
