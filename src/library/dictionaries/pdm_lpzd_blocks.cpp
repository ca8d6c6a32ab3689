#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/controls/drawn_later.h"
#include "library/dictionaries/pdm_lpzd.h"
#include "library/frame/statements.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr RecordColumn columns[] = {
    {Holder::Cell, PdmLpzd::BlockNumber, u"栋座编号"},
    {Holder::Cell, PdmLpzd::BlockName, u"栋座名称"},
    {Holder::Cell, PdmLpzd::Floors, u"总楼层", Saved::Number, Loaded::AsItComes},
    {Holder::Given, -1, u"楼盘ID", Saved::Number, Loaded::Not},
    {Holder::Cell, PdmLpzd::BlockId, u"栋座ID", Saved::Not, Loaded::AsItComes},
};

constexpr RecordTable blockRecord{
    .table = u"pdmdz",
    .key = u"栋座ID",
    .load = columns,
    .insert = columns,
    .update = columns,
    .keyKind = KeyKind::Number,
    .words = {u" InSert Into ", u") Values (", u" Update ", u" Set ", u" Where "}};

} // namespace

void PdmLpzd::makeGrid()
{
    m_grid.setFormatString(u"行号|栋座编号  |栋座/位置         |总楼层|栋座ID"_s);
    m_grid.setColHidden(BlockId, true);
    m_grid.setColAlignment(Floors, VSFlexGrid::AlignRight);
    m_grid.setFixedAlignment(Floors, VSFlexGrid::AlignRight);
    m_grid.Clear();
    connect(&m_grid, &qzGrid::CellChanged, this, &PdmLpzd::cellChanged);
    connect(&m_grid, &qzGrid::AddVsRow, this, &PdmLpzd::setDirty);
    connect(&m_grid, &qzGrid::DeleteVsRow, this, &PdmLpzd::removing);
}

void PdmLpzd::loadParts(int id)
{
    const auto rows = openRows(db(), u"SELECT * from pdmdz where 楼盘ID=%1 order by 栋座编号"_s.arg(id));
    drawnLater(m_grid, [&] {
        m_grid.makeRows(rows->RecordCount());
        for (int row = m_grid.FixedRows(); !rows->Eof(); rows->MoveNext(), ++row) {
            for (const RecordColumn &column : columns) {
                if (column.loaded != Loaded::Not)
                    m_grid.setTextMatrix(row, column.number, loadedText(column, *rows));
            }
        }
        return true;
    });
    m_deletedBlocks.clear();
}

void PdmLpzd::clearRecord()
{
    DictionaryForm::clearRecord();
    m_deletedBlocks.clear();
}

/// A number as people type it becomes the one that is saved.
void PdmLpzd::cellChanged(int row, int col)
{
    setDirty();
    const QString text = m_grid.TextMatrix(row, col);
    if (col == Floors)
        m_grid.setTextMatrix(row, col, TypedNumber(text).value_or(text));
}

void PdmLpzd::removing(int row, bool &isAllowed)
{
    isAllowed = true;
    setDirty();
    trappedWithoutDatabase(u"qzGrid_DeleteVsRow::", [&] {
        const double id = std::abs(Val(m_grid.TextMatrix(row, BlockId)));
        if (id > 0)
            m_deletedBlocks += PlainDecimal(id) + u',';
        return true;
    });
}

void PdmLpzd::writeBefore()
{
    m_newBlocks.clear();
    if (!m_deletedBlocks.isEmpty())
        executeStatement(db(), u"Delete from pdmdz Where 栋座ID in(%1)"_s.arg(m_deletedBlocks.chopped(1)));
}

/// A block without a number is not saved; one that had a number stays as it is in its table.
void PdmLpzd::writeParts(int id)
{
    for (int row = m_grid.FixedRows(); row < m_grid.Rows(); ++row) {
        if (!m_grid.cell(row, BlockNumber).empty())
            writeBlock(row, id);
    }
}

void PdmLpzd::writeBlock(int row, int building)
{
    const auto texts = [&](const RecordColumn &column) {
        return column.holder == Holder::Cell ? m_grid.TextMatrix(row, column.number)
                                             : QString::number(building);
    };
    const int known = WholePart(Val(m_grid.TextMatrix(row, BlockId)));
    if (known > 0)
        return executeOnRow(updateStatement(blockRecord, QString::number(known), texts));
    const int id = known < 0 ? -known : nextId(blockRecord);
    m_newBlocks.push_back({row, id});
    executeStatement(db(), isWritten(blockRecord, -known)
                               ? updateStatement(blockRecord, QString::number(id), texts)
                               : insertStatement(blockRecord, QString::number(id), texts));
}

/// Only after the commit: a save that failed must find the new blocks new and the removed ones to be removed.
void PdmLpzd::saved()
{
    keepKeys(1);
    m_deletedBlocks.clear();
}

/// A new block that may have been written has its key with a minus: it is looked for before the next attempt.
void PdmLpzd::unsettled()
{
    keepKeys(-1);
}

void PdmLpzd::keepKeys(int sign)
{
    for (const NewBlock &block : std::exchange(m_newBlocks, {}))
        m_grid.setTextMatrix(block.row, BlockId, QString::number(sign * block.id));
}

} // namespace ebtq
