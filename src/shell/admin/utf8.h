#pragma once

#include <QString>

#include <optional>
#include <string_view>

namespace ebtq::admin {

/// std::nullopt for invalid UTF-8: replaced characters would change a statement.
[[nodiscard]] std::optional<QString> decodeUtf8(std::string_view bytes);

} // namespace ebtq::admin
