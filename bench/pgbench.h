#pragma once

#include <QString>

namespace ebtq::bench {

/// How many simple updates a second the server's own measuring program reaches, on an empty base that it
/// fills: an update, a select and an insert in one transaction. Throws when it is not there or fails.
[[nodiscard]] double simpleUpdateRate(const QString &base, int clients, int seconds);

} // namespace ebtq::bench
