#include "database/values/row_block.h"

#include "database/values/date_text.h"
#include "database/values/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <stdexcept>

namespace ebtq {

QString cellText(std::string_view utf8)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    return utf8.starts_with(byteOrderMark) ? QChar(QChar::ByteOrderMark) + text : text;
}

/// A detail reads fifty columns of each row that the user passes: the name as it is written mostly fits.
int RowBlock::columnNamed(QStringView name) const
{
    const auto numberOf = [this](auto isNamed) {
        const auto found = std::find_if(m_columns.begin(), m_columns.end(), isNamed);
        return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
    };
    const int exact = numberOf([&](const Column &column) { return name == column.name; });
    if (exact >= 0)
        return exact;
    return numberOf(
        [&](const Column &column) { return name.compare(column.name, Qt::CaseInsensitive) == 0; });
}

QVariant RowBlock::value(qsizetype row, int column) const
{
    if (isNull(row, column))
        return {};
    const std::string_view bytes = cell(row, column);
    if (m_columns[static_cast<size_t>(column)].type == ColumnType::Binary)
        return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
    const QString text = cellText(bytes);
    bool read = false;
    switch (m_columns[static_cast<size_t>(column)].type) {
    case ColumnType::Integer: {
        const qlonglong number = text.toLongLong(&read);
        if (!read)
            return text;
        const bool fits =
            number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
        return fits ? QVariant(static_cast<int>(number)) : QVariant(number);
    }
    case ColumnType::Number: {
        const double number = text.toDouble(&read);
        return read ? QVariant(number) : QVariant(text);
    }
    case ColumnType::Date: {
        const auto date = parseDate(text);
        return date ? QVariant(*date) : QVariant(text);
    }
    default:
        return text;
    }
}

char *RowBlock::room(size_t bytes)
{
    if (bytes >= nullMark - m_arena.size())
        throw std::length_error("查询结果超过 2 GB，请缩小范围后重试！");
    return m_arena.reserveMore(bytes);
}

void RowBlock::append(std::string_view text)
{
    if (!text.empty()) {
        std::memcpy(room(text.size()), text.data(), text.size());
        m_arena.advance(text.size());
    }
    endCell();
}

void RowBlock::appendInteger(qint64 number)
{
    constexpr size_t longest = 20;
    char *begin = room(longest);
    const char *end = std::to_chars(begin, begin + longest, number).ptr;
    m_arena.advance(static_cast<size_t>(end - begin));
    endCell();
}

void RowBlock::appendNumber(double number)
{
    append(numberText(number));
}

void RowBlock::appendDate(std::string_view stored)
{
    std::string regional;
    appendRegionalDate(stored, regional);
    append(regional);
}

void RowBlock::finish()
{
    m_arena.shrink();
    m_ends.shrink();
}

} // namespace ebtq
