#pragma once

#include "database/values/row_block.h"

#include <QHash>
#include <QString>

#include <vector>

namespace ebtq::db {

/// Tables and columns of the connected database with their types, read once. Names compare without regard to
/// case and are given back in the database's own spelling.
class Catalog
{
public:
    struct Table
    {
        QString name;
        std::vector<Column> columns;
        /// Of the column by which the database numbers the rows; empty when there is none.
        QString rowKey = {};
        /// For each column whether it is known to begin no index; empty when the engine does not tell.
        std::vector<bool> unindexed = {};
        /// nullptr when there is none.
        [[nodiscard]] const Column *column(QStringView columnName) const;
        [[nodiscard]] bool isUnindexed(size_t index) const
        {
            return index < unindexed.size() && unindexed[index];
        }
    };

    void add(Table table);
    /// nullptr when there is none.
    [[nodiscard]] const Table *table(QStringView name) const;
    [[nodiscard]] bool isEmpty() const { return m_tables.isEmpty(); }

private:
    QHash<QString, Table> m_tables; ///< by case-folded name
};

} // namespace ebtq::db
