#pragma once

#include <QStringView>

namespace ebtq::db {

/// Whether no character of the text has another case: digits, signs and Chinese. Such a text is found by a
/// plain comparison, which costs an engine far less than one without regard to case.
[[nodiscard]] bool isCaseless(QStringView text);

/// What a like pattern of the form %text% looks for; empty for every other pattern.
[[nodiscard]] QStringView containedText(QStringView pattern);

} // namespace ebtq::db
