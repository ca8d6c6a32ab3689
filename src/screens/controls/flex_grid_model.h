#pragma once

#include <QAbstractTableModel>

namespace ebtq {

class VSFlexGrid;
class qzGrid;

/// The visible rows of a grid as a table model; the first fixed row is its header. Every cell is read from
/// the grid on request. The number of rows changes only along with the model's own signals, so a view stays
/// right while the grid is being filled with its redraw off.
class FlexGridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// True for the cells of a row with sums.
    static constexpr int IsSubtotal = Qt::UserRole;
    static constexpr int IsSumLabel = Qt::UserRole + 1;

    explicit FlexGridModel(VSFlexGrid &grid, QObject *parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// What a person has typed into a cell.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

    /// True between the grid's announcement of a change and its end: what a view does then is no action of
    /// the user.
    [[nodiscard]] bool isChanging() const { return m_changing; }

private:
    void followRows();
    void begin();
    void end();
    void rowChanged(int row);
    void columnsChanged();
    [[nodiscard]] QVariant alignment(int column) const;
    [[nodiscard]] QVariant look(int row, int column, int role) const;
    [[nodiscard]] QVariant picture(int row, int column) const;

    VSFlexGrid &m_grid;
    qzGrid *m_edited; ///< the grid, if its cells can be edited
    int m_rows;
    int m_columns;
    bool m_changing = false;
};

} // namespace ebtq
