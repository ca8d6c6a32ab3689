#pragma once

#include "database/dialect/statement_shape.h"
#include "database/dialect/translator.h"

#include <list>

namespace ebtq::db {

/// The translations of the shapes used last. Clear when the catalog changes.
class TranslationCache
{
public:
    /// The translation for all statements of that shape, with parameters for the values; valid until the next
    /// call. nullptr for a shape that has none: such a statement is translated separately, which reports why
    /// it is refused.
    [[nodiscard]] const Translation *find(const StatementShape &shape, const Dialect &dialect,
                                          const Catalog &catalog);
    void clear() { m_entries.clear(); }

private:
    struct Entry
    {
        QString shape;
        std::optional<Translation> translation;
    };
    std::list<Entry> m_entries; ///< used last in front
};

} // namespace ebtq::db
