#include "screens/controls/flex_grid_view.h"

#include "library/controls/flex_grid.h"
#include "library/controls/mouse_wheel.h"
#include "screens/controls/color_number.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/flex_grid_columns.h"
#include "screens/controls/flex_grid_model.h"
#include "screens/controls/frozen_columns.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int spaceAroundText = 9;
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
    m_columns = new FlexGridColumns(m_grid, *m_model, *this);
    m_frozen = new FrozenColumns(*this);
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
    setShowGrid(false); // the delegate draws the lines
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setFrameShape(QFrame::NoFrame);
}

void FlexGridView::setUpHeaders()
{
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->viewport()->installEventFilter(this);
    m_columns->watch(*m_frozen->horizontalHeader());
    connect(m_columns, &FlexGridColumns::laidOut, m_frozen, &FrozenColumns::follow);
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
    m_delegate->setWordWrap(m_grid.WordWrap());
    const int line = m_grid.GridColor();
    m_delegate->setLineColor(plainColor(line) == plainColor(systemButtonFace) ? QColor() : colorOf(line));
    const int selection = m_grid.SelectionColor();
    m_delegate->setSelectionColor(selection == 0 ? QColor() : colorOf(selection));
    followHeights();
    m_frozen->setCount(m_grid.FrozenCols() > 0 ? m_grid.FixedCols() + m_grid.FrozenCols() : 0);
    viewport()->update();
}

/// No row is lower than its text. A header whose height was not set is as high as its style makes it; it
/// stays when all columns are hidden, since its menu shows them again.
void FlexGridView::followHeights()
{
    const int lowest = fontMetrics().height() + spaceAroundText;
    verticalHeader()->setDefaultSectionSize(
        std::max(qRound(m_grid.RowHeight(m_grid.FixedRows()) * scale()), lowest));
    const int header = m_grid.FixedRows() > 0 ? m_grid.RowHeight(0) : VSFlexGrid::usualRowHeight;
    if (header == VSFlexGrid::usualRowHeight) {
        horizontalHeader()->setMinimumHeight(lowest);
        horizontalHeader()->setMaximumHeight(QWIDGETSIZE_MAX);
    } else {
        horizontalHeader()->setFixedHeight(std::max(qRound(header * scale()), lowest));
    }
}

/// Unhiding rows must not scroll the current row away.
void FlexGridView::followRows()
{
    m_columns->fit();
    followColumns();
    followTopRow();
    markCurrent();
    if (m_currentSeen)
        showCurrent();
}

void FlexGridView::followColumns()
{
    QSet<int> merged;
    for (int column = 0; column < m_grid.Cols(); ++column) {
        if (m_grid.MergeCol(column))
            merged.insert(column);
    }
    m_delegate->setMergedColumns(merged);
    m_isMerged = !merged.isEmpty();
    m_columns->follow();
    viewport()->update();
}

void FlexGridView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    m_columns->layOut();
    updateGeometries(); // the columns fit again: a scroll bar for the former ones must not be seen
}

/// A mouse press does not scroll the row: both presses of a double click must hit the same one.
void FlexGridView::followCurrent()
{
    markCurrent();
    if (!m_exchange.isTaking())
        showCurrent();
}

void FlexGridView::markCurrent()
{
    const auto following = m_exchange.follow();
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
        const auto following = m_exchange.follow();
        updateGeometries(); // as for the top row
        scrollTo(currentIndex());
    }
    reportTopRow(verticalScrollBar()->value());
}

bool FlexGridView::isCurrentSeen() const
{
    return currentIndex().isValid() && viewport()->rect().intersects(visualRect(currentIndex()));
}

/// The user's moves go to the grid; changes of the view while rows are added or removed do not.
void FlexGridView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    viewport()->update(); // the whole row that was current has another colour now
    if (m_exchange.isFollowing() || m_model->isChanging() || !current.isValid())
        return;
    const auto moved = m_exchange.take();
    m_grid.setCurrent(m_grid.rowInSight(current.row()), current.column());
}

void FlexGridView::followTopRow()
{
    const auto following = m_exchange.follow();
    updateGeometries(); // the scroll bar's range, which is otherwise set when the view is next painted
    if (const int top = m_grid.topInSight(); top >= 0)
        verticalScrollBar()->setValue(top);
}

/// The visible part of a merged cell changes with every scrolled row.
void FlexGridView::reportTopRow(int position)
{
    if (m_isMerged)
        viewport()->update();
    if (!m_exchange.isFollowing() && !m_model->isChanging())
        m_grid.setTopRow(m_grid.rowInSight(position));
}

// Frozen columns

QModelIndex FlexGridView::indexAt(const QPoint &place) const
{
    const bool isFrozen = m_frozen->isVisible() && place.x() < m_frozen->width();
    return isFrozen ? m_frozen->indexAt(place) : QTableView::indexAt(place);
}

QRect FlexGridView::visualRect(const QModelIndex &index) const
{
    const bool isFrozen = m_frozen->isVisible() && !m_frozen->isColumnHidden(index.column());
    return isFrozen ? m_frozen->visualRect(index) : QTableView::visualRect(index);
}

/// A cell below the frozen columns is not visible.
void FlexGridView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    QTableView::scrollTo(index, hint);
    const int covered = m_frozen->frozenWidth() - columnViewportPosition(index.column());
    const bool isFrozen = horizontalHeader()->visualIndex(index.column()) < m_frozen->count();
    if (covered > 0 && !isFrozen)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - covered);
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
    const QString text = hint();
    if (text.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(look::tokens().muted);
    painter.drawText(viewport()->rect(), Qt::AlignCenter, text);
}

/// A layout file can hide every column, which the header's menu does not.
QString FlexGridView::hint() const
{
    const QHeaderView &header = *horizontalHeader();
    if (header.count() > 0 && header.hiddenSectionCount() == header.count())
        return u"所有列都已隐藏，请在标题栏上按右键选择要显示的列"_s;
    return m_model->rowCount() == 0 ? m_emptyHint : QString();
}

void FlexGridView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        followLook();
}

} // namespace ebtq
