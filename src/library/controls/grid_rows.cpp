#include "library/controls/grid_rows.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

namespace ebtq {

void GridRows::load(RowBlock block, int firstCol)
{
    if (block.rowCount() > static_cast<qsizetype>(identityMask))
        throw std::length_error("查询结果行数过多，请缩小范围后重试！");
    m_block = std::move(block);
    m_firstCol = firstCol;
    m_edited.clear();
    m_levelOfAdded.clear();
    m_inSight.clear();
    m_hiddenCount = 0;
    m_nextIdentity = static_cast<Identity>(m_block.rowCount());
    m_order.resize(m_nextIdentity);
    std::iota(m_order.begin(), m_order.end(), 0U);
}

void GridRows::resize(int count)
{
    if (count == 0) {
        *this = GridRows();
        return;
    }
    while (this->count() > count)
        remove(this->count() - 1);
    m_order.reserve(static_cast<size_t>(count));
    while (this->count() < count)
        m_order.push_back(newEntry());
    m_inSight.clear();
}

const GridRows::EditedCell *GridRows::editedCell(Identity row, int col) const
{
    const auto found = m_edited.find(row);
    if (found == m_edited.end())
        return nullptr;
    const auto cell = std::ranges::find(found->second, col, &EditedCell::col);
    return cell == found->second.end() ? nullptr : &*cell;
}

std::string_view GridRows::cell(int position, int col) const
{
    return cellOf(entry(position), col);
}

std::string_view GridRows::cellOf(Entry entry, int col) const
{
    const Identity row = entry & identityMask;
    if (entry & editedMark) {
        if (const EditedCell *cell = editedCell(row, col))
            return cell->text;
    }
    const int blockCol = col - m_firstCol;
    if (row >= m_block.rowCount() || blockCol < 0 || blockCol >= m_block.columnCount())
        return {};
    return m_block.cell(row, blockCol);
}

void GridRows::setCell(int position, int col, std::string text)
{
    m_order[static_cast<size_t>(position)] |= editedMark;
    setCellOf(entry(position), col, std::move(text));
}

void GridRows::setCellOf(Entry entry, int col, std::string text)
{
    EditedRow &row = m_edited[entry & identityMask];
    const auto cell = std::ranges::find(row, col, &EditedCell::col);
    if (cell != row.end())
        cell->text = std::move(text);
    else
        row.push_back({col, std::move(text)});
}

GridRows::Entry GridRows::newEntry(int subtotalLevel)
{
    m_levelOfAdded.push_back(static_cast<qint16>(subtotalLevel));
    return m_nextIdentity++ | editedMark;
}

GridRows::Entry GridRows::addSubtotal(int level, size_t cells)
{
    const Entry entry = newEntry(level);
    m_edited[entry & identityMask].reserve(cells);
    return entry;
}

void GridRows::place(std::vector<Entry> entries)
{
    m_order = std::move(entries);
    m_inSight.clear();
}

void GridRows::removeSubtotals()
{
    std::erase_if(m_order, [this](Entry entry) {
        if (subtotalLevel(entry) < 0)
            return false;
        m_hiddenCount -= entry & hiddenMark ? 1 : 0;
        m_edited.erase(entry & identityMask);
        return true;
    });
    m_inSight.clear();
}

void GridRows::insert(int position)
{
    m_order.insert(m_order.begin() + position, newEntry());
    m_inSight.clear();
}

void GridRows::remove(int position)
{
    m_hiddenCount -= isHidden(position) ? 1 : 0;
    m_edited.erase(identity(position));
    m_order.erase(m_order.begin() + position);
    m_inSight.clear();
}

void GridRows::setHidden(int position, bool hidden)
{
    if (isHidden(position) == hidden)
        return;
    m_order[static_cast<size_t>(position)] ^= hiddenMark;
    m_hiddenCount += hidden ? 1 : -1;
    m_inSight.clear();
}

void GridRows::hideAll()
{
    for (quint32 &row : m_order)
        row |= hiddenMark;
    m_hiddenCount = count();
    m_inSight.clear();
}

void GridRows::showAll()
{
    if (m_hiddenCount == 0)
        return;
    for (quint32 &row : m_order)
        row &= ~hiddenMark;
    m_hiddenCount = 0;
    m_inSight = {};
}

const std::vector<quint32> &GridRows::inSight() const
{
    if (m_inSight.empty() && countInSight() != 0) {
        m_inSight.reserve(static_cast<size_t>(countInSight()));
        for (int position = 0; position < count(); ++position) {
            if (!isHidden(position))
                m_inSight.push_back(static_cast<quint32>(position));
        }
    }
    return m_inSight;
}

int GridRows::positionInSight(int nth) const
{
    return m_hiddenCount == 0 ? nth : static_cast<int>(inSight()[static_cast<size_t>(nth)]);
}

int GridRows::sightBefore(int position) const
{
    if (m_hiddenCount == 0)
        return position;
    const auto &rows = inSight();
    return static_cast<int>(std::ranges::lower_bound(rows, static_cast<quint32>(position)) - rows.begin());
}

int GridRows::endOfRun(int position) const
{
    if (entry(position) & editedMark)
        return position;
    quint32 expected = identity(position);
    int end = position;
    while (end < count() && (entry(end) & ~hiddenMark) == expected) {
        ++expected;
        ++end;
    }
    return end;
}

size_t GridRows::byteSize() const
{
    size_t size = m_block.byteSize() + (m_order.capacity() + m_inSight.capacity()) * sizeof(quint32) +
                  m_levelOfAdded.capacity() * sizeof(qint16) + m_edited.bucket_count() * sizeof(void *);
    for (const auto &[identity, row] : m_edited) {
        size += sizeof(identity) + sizeof(row) + 2 * sizeof(void *) + row.capacity() * sizeof(EditedCell);
        for (const EditedCell &cell : row)
            size += cell.text.capacity() > std::string().capacity() ? cell.text.capacity() + 1 : 0;
    }
    return size;
}

int GridRows::subtotalCount(bool inSight) const
{
    if (m_levelOfAdded.empty())
        return 0;
    return static_cast<int>(std::ranges::count_if(m_order, [&](Entry each) {
        return subtotalLevel(each) >= 0 && !(inSight && (each & hiddenMark) != 0);
    }));
}

} // namespace ebtq
