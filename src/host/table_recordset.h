#pragma once

#include "database/connection.h"
#include "host/recordset.h"

namespace ebtq::host {

/// The rows of a statement on one table: binary fields are read from the database when they are asked for,
/// and rows can be added.
class TableRecordset : public BlockRecordset
{
public:
    /// `table` may be empty, and then nothing can be added; `connection` outlives this.
    TableRecordset(RowBlock rows, QString table, db::Connection &connection);

    [[nodiscard]] Field Fields(const QString &name) const override;
    void AddNew() override;
    void SetField(const QString &name, const QVariant &value) override;
    void SetFieldFromFile(const QString &name, const QString &path) override;
    void Update() override;
    void WriteField(const QString &name, QIODevice &to) override;

private:
    struct Cell
    {
        Column column;
        QVariant value;
    };
    [[nodiscard]] const Column &column(const QString &name) const;
    [[nodiscard]] RowBlock block() const;

    QString m_table;
    db::Connection &m_connection;
    bool m_isAdding = false;
    std::vector<Cell> m_cells; ///< of the new row, as is what follows
    Column m_blob;
    QString m_file;
};

} // namespace ebtq::host
