#pragma once

#include "database/dialect/catalog.h"

#include <span>

namespace ebtq::db {

/// One column of the schema as data.
struct ColumnDefinition
{
    enum Rule : quint8 {
        Plain,
        Key,       ///< part of the primary key, in the order of the columns
        AutoKey,   ///< primary key that the engine numbers by itself
        Zero,      ///< not Null, 0 unless given
        EmptyText, ///< not Null, the empty text unless given
    };
    const char16_t *name;
    ColumnType type;
    Rule rule = Plain;
};

/// An index; it serves the statements named beside its definition.
struct IndexDefinition
{
    enum Kind {
        Sorted,
        Unique,
        Hashed, ///< finds single keys only; made on a server alone, where comparing texts is dear
    };
    const char16_t *name;
    const char16_t *columns; ///< as in a column list, with "desc" where wanted
    Kind kind = Sorted;
};

struct TableDefinition
{
    const char16_t *name;
    std::span<const ColumnDefinition> columns;
    std::span<const IndexDefinition> indexes;
};

/// Every table of the system: the agency's own and those of the host, which begin with "host_". Foreign keys
/// are not declared: name columns are copies, a listing may outlive its building, and 房源ID of a follow-up
/// names a listing or a customer.
[[nodiscard]] std::span<const TableDefinition> schemaTables();

/// Names of indexes of older versions that serve no statement any more.
[[nodiscard]] std::span<const QStringView> retiredIndexes();

/// The version that the tables of this build have; see installer.h.
inline constexpr int schemaVersion = 2;

/// The catalog of a freshly installed database, for translating without one.
[[nodiscard]] Catalog schemaCatalog();

} // namespace ebtq::db
