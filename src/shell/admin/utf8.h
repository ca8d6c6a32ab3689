#pragma once

#include <QString>

#include <optional>
#include <string_view>

namespace ebtq::admin {

/// Nothing for bytes that are no text: half-read characters would change what a statement says.
[[nodiscard]] std::optional<QString> decodeUtf8(std::string_view bytes);

} // namespace ebtq::admin
