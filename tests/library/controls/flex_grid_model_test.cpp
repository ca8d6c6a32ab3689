// The grid against a model that keeps every cell of every row, through random operations; a second model is
// kept up to date by the view's signals alone.

#include "library/controls/flex_grid.h"

#include <gtest/gtest.h>

#include <random>

using namespace ebtq;

namespace {

constexpr int columns = 4;

struct Row
{
    QStringList cells = QStringList(columns);
    bool hidden = false;
    QString picture;
};

class GridAndModel
{
public:
    explicit GridAndModel(unsigned seed)
        : m_random(seed)
    {
        m_grid.setFormatString(u"a|b|c|d"_qs);
        mirror();
    }

    void step()
    {
        static constexpr std::array operations{
            &GridAndModel::edit,   &GridAndModel::edit,   &GridAndModel::edit,   &GridAndModel::insert,
            &GridAndModel::insert, &GridAndModel::remove, &GridAndModel::remove, &GridAndModel::hideOne,
            &GridAndModel::filter, &GridAndModel::filter, &GridAndModel::find,   &GridAndModel::picture,
            &GridAndModel::find,   &GridAndModel::resize, &GridAndModel::load,   &GridAndModel::showAll};
        (this->*operations[static_cast<size_t>(number(operations.size()))])();
        compare();
    }

private:
    int number(size_t below) { return static_cast<int>(m_random() % below); }
    bool chance(int percent) { return number(100) < percent; }
    int anyRow() { return number(m_rows.size() + 1); } // of the model; one too many at times

    /// Few letters and short cells, so that texts often lie across the border of two cells.
    QString text(int longest)
    {
        static const QString letters = u"ab房型%A"_qs;
        QString result;
        for (int length = number(static_cast<size_t>(longest) + 1); length > 0; --length)
            result += letters[number(static_cast<size_t>(letters.size()))];
        return result;
    }
    QList<int> searchColumns()
    {
        QList<int> result;
        for (int col = 0; col < columns; ++col) {
            if (chance(60))
                result.append(col);
        }
        return result;
    }

    bool holds(const Row &row, const QString &needle, const QList<int> &searched,
               Qt::CaseSensitivity how) const
    {
        QString whole = row.cells[m_grid.Col()];
        for (const int col : searched)
            whole += u'%' + row.cells[col];
        return whole.contains(needle, how);
    }

    void load()
    {
        m_rows.clear();
        RowBlock block{std::vector<Column>(columns)};
        for (int count = number(60); count > 0; --count) {
            Row row;
            for (QString &cell : row.cells) {
                cell = text(3);
                block.append(cell.toStdString());
            }
            m_rows.push_back(row);
        }
        block.finish();
        m_grid.LoadArray(std::move(block));
    }
    void edit()
    {
        const int row = anyRow();
        const int col = number(columns);
        const QString to = text(3);
        m_grid.setTextMatrix(row + 1, col, to);
        if (row < std::ssize(m_rows))
            m_rows[static_cast<size_t>(row)].cells[col] = to;
    }
    void insert()
    {
        const int row = anyRow();
        m_grid.insertRow(row + 1);
        m_rows.insert(m_rows.begin() + row, Row());
    }
    void remove()
    {
        const int row = anyRow();
        m_grid.RemoveItem(row + 1);
        if (row < std::ssize(m_rows))
            m_rows.erase(m_rows.begin() + row);
    }
    void resize()
    {
        const int rows = number(m_rows.size() + 5);
        m_grid.setRows(rows + 1);
        m_rows.resize(static_cast<size_t>(rows), Row());
    }
    void hideOne()
    {
        const int row = anyRow();
        const bool hidden = chance(50);
        m_grid.setRowHidden(row + 1, hidden);
        if (row < std::ssize(m_rows))
            m_rows[static_cast<size_t>(row)].hidden = hidden;
    }
    void showAll()
    {
        m_grid.showAllRows();
        for (Row &row : m_rows)
            row.hidden = false;
    }
    void picture()
    {
        const int row = anyRow();
        const QString icon = chance(70) ? u"tag"_qs : QString();
        m_grid.setCellPicture(row + 1, 2, icon);
        if (row < std::ssize(m_rows))
            m_rows[static_cast<size_t>(row)].picture = icon;
    }
    void filter()
    {
        m_grid.setCol(number(columns));
        const QString needle = text(3);
        const QList<int> searched = searchColumns();
        const auto how = chance(30) ? Qt::CaseInsensitive : Qt::CaseSensitive;
        m_grid.hideRowsWithout(needle, searched, how);
        for (Row &row : m_rows)
            row.hidden = !holds(row, needle, searched, how);
    }
    void find()
    {
        m_grid.setCol(number(columns));
        const QString needle = text(3);
        const QList<int> searched = searchColumns();
        const auto how = chance(30) ? Qt::CaseInsensitive : Qt::CaseSensitive;
        const int from = anyRow();
        int expected = -1;
        for (int row = from; row < std::ssize(m_rows) && expected < 0; ++row) {
            if (holds(m_rows[static_cast<size_t>(row)], needle, searched, how))
                expected = row + 1;
        }
        EXPECT_EQ(m_grid.findRow(needle, searched, from + 1, how), expected) << needle.toStdString();
    }

    /// What a view would hold if it only listened.
    void mirror()
    {
        const auto readAll = [this] {
            m_mirror.clear();
            for (int position = 0; position < m_grid.visibleCount(); ++position)
                m_mirror.append(rowText(m_grid.rowInSight(position)));
        };
        QObject::connect(&m_grid, &VSFlexGrid::rowsReset, readAll);
        QObject::connect(&m_grid, &VSFlexGrid::rowAboutToBeInserted,
                         [this](int position) { EXPECT_LE(position, m_mirror.size()); });
        QObject::connect(&m_grid, &VSFlexGrid::rowInserted, [this](int position) {
            m_mirror.insert(position, rowText(m_grid.rowInSight(position)));
        });
        QObject::connect(&m_grid, &VSFlexGrid::rowAboutToBeRemoved, [this](int position) {
            EXPECT_EQ(m_mirror[position], rowText(m_grid.rowInSight(position)));
        });
        QObject::connect(&m_grid, &VSFlexGrid::rowRemoved,
                         [this](int position) { m_mirror.removeAt(position); });
        QObject::connect(&m_grid, &VSFlexGrid::rowChanged, [this](int row) {
            if (const int position = m_grid.positionInSight(row); position >= 0)
                m_mirror[position] = rowText(row);
        });
    }
    [[nodiscard]] QString rowText(int row) const
    {
        QString result;
        for (int col = 0; col < columns; ++col)
            result += m_grid.TextMatrix(row, col) + u'|' + m_grid.CellPicture(row, col) + u';';
        return result;
    }

    void compare()
    {
        ASSERT_EQ(m_grid.Rows(), std::ssize(m_rows) + 1);
        ASSERT_LT(m_grid.Row(), m_grid.Rows());
        ASSERT_EQ(m_mirror.size(), m_grid.visibleCount());
        int position = 0;
        for (int row = 1; row < m_grid.Rows(); ++row) {
            const Row &expected = m_rows[static_cast<size_t>(row - 1)];
            for (int col = 0; col < columns; ++col)
                ASSERT_EQ(m_grid.TextMatrix(row, col), expected.cells[col]);
            ASSERT_EQ(m_grid.CellPicture(row, 2), expected.picture);
            ASSERT_EQ(m_grid.RowHidden(row), expected.hidden);
            ASSERT_EQ(m_grid.positionInSight(row), expected.hidden ? -1 : position);
            if (expected.hidden)
                continue;
            ASSERT_EQ(m_grid.rowInSight(position), row);
            ASSERT_EQ(m_mirror[position], rowText(row));
            ++position;
        }
        ASSERT_EQ(m_grid.visibleCount(), position);
    }

    std::mt19937 m_random;
    VSFlexGrid m_grid{u"VS"_qs};
    std::vector<Row> m_rows;
    QStringList m_mirror;
};

TEST(GridModelTest, RandomOperationsKeepGridModelAndViewAlike)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        GridAndModel pair(seed);
        for (int step = 0; step < 400; ++step) {
            pair.step();
            ASSERT_FALSE(::testing::Test::HasFailure()) << "seed " << seed << ", step " << step;
        }
    }
}

} // namespace
