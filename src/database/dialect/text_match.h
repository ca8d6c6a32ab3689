#pragma once

#include <QStringView>

namespace ebtq::db {

/// Whether no character of the text has another case: digits, punctuation and Chinese. Such a text is found
/// by an exact comparison, which is much cheaper for an engine than a case-insensitive one.
[[nodiscard]] bool isCaseless(QStringView text);

/// What a like pattern of the form %text% looks for; empty for every other pattern.
[[nodiscard]] QStringView containedText(QStringView pattern);

} // namespace ebtq::db
