#include "screens/controls/flex_grid_model.h"

#include "library/controls/qz_grid.h"
#include "screens/controls/color_number.h"
#include "screens/look/look.h"

#include <QFont>

namespace ebtq {

namespace {

constexpr int headerRow = 0;

Qt::AlignmentFlag across(int alignment)
{
    switch (alignment) {
    case VSFlexGrid::AlignCentre:
        return Qt::AlignHCenter;
    case VSFlexGrid::AlignRight:
        return Qt::AlignRight;
    default:
        return Qt::AlignLeft;
    }
}

QFont boldFont()
{
    QFont font;
    font.setBold(true);
    return font;
}

} // namespace

FlexGridModel::FlexGridModel(VSFlexGrid &grid, QObject *parent)
    : QAbstractTableModel(parent)
    , m_grid(grid)
    , m_edited(qobject_cast<qzGrid *>(&grid))
    , m_rows(grid.visibleCount())
    , m_columns(grid.Cols())
{
    followRows();
    connect(&grid, &VSFlexGrid::rowChanged, this, &FlexGridModel::rowChanged);
    connect(&grid, &VSFlexGrid::columnsChanged, this, &FlexGridModel::columnsChanged);
}

void FlexGridModel::followRows()
{
    connect(&m_grid, &VSFlexGrid::rowsAboutToBeReset, this, [this] {
        begin();
        beginResetModel();
    });
    connect(&m_grid, &VSFlexGrid::rowsReset, this, [this] {
        end();
        endResetModel();
    });
    connect(&m_grid, &VSFlexGrid::rowAboutToBeInserted, this, [this](int position) {
        begin();
        beginInsertRows({}, position, position);
    });
    connect(&m_grid, &VSFlexGrid::rowInserted, this, [this] {
        end();
        endInsertRows();
    });
    connect(&m_grid, &VSFlexGrid::rowAboutToBeRemoved, this, [this](int position) {
        begin();
        beginRemoveRows({}, position, position);
    });
    connect(&m_grid, &VSFlexGrid::rowRemoved, this, [this] {
        end();
        endRemoveRows();
    });
}

void FlexGridModel::begin()
{
    m_changing = true;
}

void FlexGridModel::end()
{
    m_rows = m_grid.visibleCount();
    m_columns = m_grid.Cols();
    m_changing = false;
}

void FlexGridModel::rowChanged(int row)
{
    const int position = m_grid.positionInSight(row);
    if (position >= 0 && position < m_rows)
        Q_EMIT dataChanged(index(position, 0), index(position, m_columns - 1));
    else if (row == headerRow)
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, m_columns - 1);
}

void FlexGridModel::columnsChanged()
{
    if (m_changing)
        return; // the end of the change brings the columns along
    if (m_columns == m_grid.Cols()) {
        if (m_columns > 0)
            Q_EMIT headerDataChanged(Qt::Horizontal, 0, m_columns - 1);
        if (m_columns > 0 && m_rows > 0) // formats
            Q_EMIT dataChanged(index(0, 0), index(m_rows - 1, m_columns - 1));
        return;
    }
    beginResetModel();
    end();
    endResetModel();
}

int FlexGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int FlexGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

QVariant FlexGridModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_grid.visibleCount() || index.column() >= m_grid.Cols())
        return {};
    const int row = m_grid.rowInSight(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return m_grid.displayText(row, index.column());
    case Qt::EditRole:
        return m_grid.TextMatrix(row, index.column());
    case Qt::TextAlignmentRole:
        return alignment(index.column());
    case Qt::DecorationRole:
        return picture(row, index.column());
    case IsSubtotal:
        return m_grid.isSubtotal(row);
    case IsSumLabel:
        return m_grid.isSumLabel(row, index.column());
    default:
        return look(row, index.column(), role);
    }
}

Qt::ItemFlags FlexGridModel::flags(const QModelIndex &index) const
{
    const bool isEditable = m_edited && index.isValid() &&
                            m_edited->isCellEditable(m_grid.rowInSight(index.row()), index.column());
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return isEditable ? usual | Qt::ItemIsEditable : usual;
}

bool FlexGridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!m_edited || !index.isValid() || role != Qt::EditRole)
        return false;
    m_edited->edit(m_grid.rowInSight(index.row()), index.column(), value.toString());
    return true;
}

/// Nothing for what looks as usual.
QVariant FlexGridModel::look(int row, int column, int role) const
{
    const GridCellLook look = m_grid.cellLook(row, column);
    if (role == Qt::BackgroundRole && look.backColor != 0)
        return colorOf(look.backColor);
    if (role == Qt::ForegroundRole && look.foreColor != 0)
        return colorOf(look.foreColor);
    return role == Qt::FontRole && look.isBold ? QVariant(boldFont()) : QVariant();
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= m_grid.Cols() || m_grid.FixedRows() == 0)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return m_grid.TextMatrix(headerRow, section).trimmed();
    case Qt::TextAlignmentRole:
        return static_cast<int>(across(m_grid.FixedAlignment(section)) | Qt::AlignVCenter);
    case Qt::DecorationRole:
        return picture(headerRow, section);
    default:
        return {};
    }
}

QVariant FlexGridModel::alignment(int column) const
{
    return static_cast<int>(across(m_grid.shownAlignment(column)) | Qt::AlignVCenter);
}

QVariant FlexGridModel::picture(int row, int column) const
{
    const QString name = m_grid.CellPicture(row, column);
    return name.isEmpty() ? QVariant() : QVariant(look::icon(name));
}

} // namespace ebtq
