#pragma once

#include "database/values/buffer.h"

#include <QString>
#include <QVariant>

#include <optional>
#include <string_view>
#include <vector>

namespace ebtq {

/// What a column holds, as the database says. Number is any floating-point value; Flag columns are Integer.
enum class ColumnType : quint8 { Text, Integer, Number, Date, Binary };

/// A cell's text. Unlike QString::fromUtf8 it keeps a U+FEFF at the beginning: what is saved again must be
/// what was read.
[[nodiscard]] QString cellText(std::string_view utf8);

/// A binary column of a table.
struct BlobColumn
{
    QString table;
    QString column;
};

struct Column
{
    QString name; ///< as written in the select list or behind "as"; may be empty
    ColumnType type = ColumnType::Text;
    /// Of a column that a select takes from a table as it is: the cells, then of the type Integer, hold the
    /// keys of the rows in which the bytes lie, since nobody reads the contents of files along with a list.
    std::optional<BlobColumn> blob = {};
};

/// The rows of one result: all cells' UTF-8 text in one arena, row by row, with the end of each cell and a
/// mark for Null. Immutable once built and moved from the driver to the grid without copying a cell. Numbers
/// stand as their text, dates in regional form, binary contents as their bytes.
///
/// Sizes: an arena holds less than 2 GiB, a cell costs 4 bytes beside its text.
class RowBlock
{
public:
    RowBlock() = default;
    explicit RowBlock(std::vector<Column> columns)
        : m_columns(std::move(columns))
    {}

    [[nodiscard]] int columnCount() const { return static_cast<int>(m_columns.size()); }
    [[nodiscard]] qsizetype rowCount() const
    {
        return m_columns.empty() ? 0 : static_cast<qsizetype>(m_ends.size() / m_columns.size());
    }
    [[nodiscard]] const std::vector<Column> &columns() const { return m_columns; }
    /// The number of the column of that name, compared without regard to case; -1 when there is none.
    [[nodiscard]] int columnNamed(QStringView name) const;

    /// A cell's text; empty for Null. Valid as long as the block.
    [[nodiscard]] std::string_view cell(qsizetype row, int column) const
    {
        return cellAt(index(row, column));
    }
    [[nodiscard]] std::string_view cellAt(size_t index) const
    {
        const size_t begin = index == 0 ? 0 : end(index - 1);
        return {m_arena.data() + begin, end(index) - begin};
    }
    [[nodiscard]] bool isNull(qsizetype row, int column) const
    {
        return m_ends[index(row, column)] & nullMark;
    }

    /// A cell in its column's type: QString, int or qlonglong, double, QDateTime, QByteArray; an invalid
    /// QVariant for Null. A text that does not read as its column's type comes back as the text.
    [[nodiscard]] QVariant value(qsizetype row, int column) const;

    /// The whole arena, and where the cell with that index ends in it: for a search in one pass.
    [[nodiscard]] std::string_view arena() const { return {m_arena.data(), m_arena.size()}; }
    [[nodiscard]] size_t cellCount() const { return m_ends.size(); }
    [[nodiscard]] size_t end(size_t index) const { return m_ends[index] & ~nullMark; }

    /// Memory held, in bytes.
    [[nodiscard]] size_t byteSize() const { return m_arena.capacity() + m_ends.capacity() * sizeof(quint32); }

    /// Building, cell by cell in row order. Throw std::length_error when the arena would reach 2 GiB.
    void appendNull() { m_ends.push(static_cast<quint32>(m_arena.size()) | nullMark); }
    void append(std::string_view text);
    void appendInteger(qint64 number);
    void appendNumber(double number);
    /// A date in stored form; kept in regional form.
    void appendDate(std::string_view stored);
    /// To be called after the last cell: gives unused memory back.
    void finish();

private:
    static constexpr quint32 nullMark = 0x80000000U;
    [[nodiscard]] size_t index(qsizetype row, int column) const
    {
        return static_cast<size_t>(row) * m_columns.size() + static_cast<size_t>(column);
    }
    char *room(size_t bytes);
    void endCell() { m_ends.push(static_cast<quint32>(m_arena.size())); }

    std::vector<Column> m_columns;
    Buffer<char> m_arena;
    Buffer<quint32> m_ends;
};

} // namespace ebtq
