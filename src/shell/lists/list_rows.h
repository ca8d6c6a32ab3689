#pragma once

#include <QStringList>

class QObject;

namespace ebtq::shell {

/// The rows of a module's grid (IReportUI_oTable), seen by its properties: its class is unknown here, since
/// it comes from a library loaded by name.
class ListRows
{
public:
    /// `grid` may be nullptr: no rows.
    explicit ListRows(QObject *grid)
        : m_grid(grid)
    {}

    [[nodiscard]] int count() const;
    /// The cells of the column with that caption, hidden or not, from the top.
    [[nodiscard]] QStringList column(QStringView caption) const;
    /// Caption of the column that the person is in; empty for none that is seen.
    [[nodiscard]] QString currentColumn() const;
    /// The current row's cell; empty when no row is current.
    [[nodiscard]] QString current(QStringView caption) const;

private:
    [[nodiscard]] int number(const char *property) const;
    [[nodiscard]] QString cell(int row, int column) const;
    [[nodiscard]] int columnOf(QStringView caption) const;

    QObject *m_grid;
};

} // namespace ebtq::shell
