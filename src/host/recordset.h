#pragma once

#include "contracts/host_contracts.h"

namespace ebtq::host {

/// A cursor over the rows of one result.
class BlockRecordset : public Recordset
{
public:
    explicit BlockRecordset(RowBlock rows);

    [[nodiscard]] int RecordCount() const override { return m_count; }
    [[nodiscard]] bool Eof() const override { return m_row >= m_count; }
    [[nodiscard]] bool Bof() const override { return m_count == 0; }
    void MoveNext() override;
    [[nodiscard]] Field Fields(const QString &name) const override;
    [[nodiscard]] RowBlock GetRows() override;
    void Close() override;

protected:
    [[nodiscard]] const RowBlock &rows() const { return m_rows; }
    void replaceRows(RowBlock rows);

private:
    RowBlock m_rows;
    int m_count;
    int m_row = 0;
};

} // namespace ebtq::host
