#pragma once

#include "screens/controls/exchange.h"

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class QHeaderView;
class QMenu;
class QTableView;

namespace ebtq {

class FlexGridModel;
class VSFlexGrid;

/// Widths, order and visibility of a grid's columns on the screen. A column that still has the width of its
/// caption grows to what its first rows need and shares the room that is left. What a person changes with the
/// mouse, or in the header's menu, goes to the grid.
class FlexGridColumns : public QObject
{
    Q_OBJECT

public:
    FlexGridColumns(VSFlexGrid &grid, FlexGridModel &model, QTableView &view);

    /// Takes over what the grid says.
    void follow();
    /// Looks at the first rows only: the cost must not grow with the list.
    void fit();
    /// Parts the width of the window.
    void layOut();
    /// A header over these columns: its menu, and the end of drawing an edge in it.
    void watch(QHeaderView &header);
    /// The columns to be ticked, and a command that restores the given layout.
    [[nodiscard]] std::unique_ptr<QMenu> makeMenu();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void laidOut();

private:
    /// How wide a column would be, how much of that it can do without, and its part of the room left over.
    struct Width
    {
        int wish = 0;
        int spare = 0;
        int grow = 0;
    };
    [[nodiscard]] Width widthOf(int column) const;
    [[nodiscard]] int neededWidth(int column) const;
    [[nodiscard]] double scale() const;
    [[nodiscard]] QHeaderView &header() const;
    void followOrder();
    void resized(int column, int width);
    void moved();
    void setShown(int column, bool shown);
    [[nodiscard]] int countInSight() const;

    VSFlexGrid &m_grid;
    FlexGridModel &m_model;
    QTableView &m_view;
    QString m_format;
    std::vector<int> m_neededWidths;
    Exchange m_exchange;
    bool m_isUnsaved = false; ///< a width, until the mouse is let go
};

} // namespace ebtq
