#include "database/dialect/blob_places.h"

#include <algorithm>

namespace ebtq::db {

std::optional<BlobPlace> blobPlace(const Expression &item, const Select &list)
{
    const auto *column = item.as<ColumnReference>();
    if (!column || column->isDerived || item.type != Type::Binary || list.isDistinct || list.isGrouped)
        return std::nullopt;
    const auto source = std::ranges::find(list.sources, column->source, &Source::number);
    if (source == list.sources.end() || source->resolved->rowKey.isEmpty())
        return std::nullopt;
    return BlobPlace{&*source, column};
}

} // namespace ebtq::db
