#include "database/dialect/translation_cache.h"

#include <algorithm>

namespace ebtq::db {

namespace {

constexpr size_t mostKept = 32;

std::optional<Translation> translateShape(const StatementShape &shape, const Dialect &dialect,
                                          const Catalog &catalog)
{
    try {
        Translation translation = translate(shape.sample(), dialect, catalog);
        auto sql = shape.withParameters(std::move(translation.sql));
        const bool hasValuesInCounts = !translation.counts.empty() && !shape.values().empty();
        if (!sql || hasValuesInCounts)
            return std::nullopt;
        translation.sql = std::move(*sql);
        for (PlanByBound &plan : translation.plansByBound) {
            const auto count = shape.withParameters(plan.count, StatementShape::Extent::Part);
            const auto own = shape.withParameters(plan.sql);
            if (!count || !own)
                return std::nullopt;
            plan = {*count, *own};
        }
        return translation;
    } catch (const DialectError &) {
        return std::nullopt;
    }
}

} // namespace

const Translation *TranslationCache::find(const StatementShape &shape, const Dialect &dialect,
                                          const Catalog &catalog)
{
    const auto known = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry &entry) { return entry.shape == shape.text(); });
    if (known != m_entries.end()) {
        m_entries.splice(m_entries.begin(), m_entries, known);
    } else {
        m_entries.push_front({shape.text(), translateShape(shape, dialect, catalog)});
        if (m_entries.size() > mostKept)
            m_entries.pop_back();
    }
    const auto &translation = m_entries.front().translation;
    return translation ? &*translation : nullptr;
}

} // namespace ebtq::db
