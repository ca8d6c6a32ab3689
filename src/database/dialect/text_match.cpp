#include "database/dialect/text_match.h"

#include <algorithm>

namespace ebtq::db {

bool isCaseless(QStringView text)
{
    return std::ranges::all_of(text, [](QChar c) {
        const char16_t unit = c.unicode();
        const auto lower = static_cast<char16_t>(unit | 0x20);
        const bool isSign = unit < 0x80 && (lower < u'a' || lower > u'z');
        return isSign || (unit >= 0x2E80 && unit < 0xA4D0);
    });
}

QStringView containedText(QStringView pattern)
{
    if (pattern.size() < 3 || !pattern.startsWith(u'%') || !pattern.endsWith(u'%'))
        return {};
    const QStringView inner = pattern.sliced(1, pattern.size() - 2);
    const bool isPlain =
        std::ranges::none_of(inner, [](QChar c) { return c == u'%' || c == u'_' || c == u'['; });
    return isPlain ? inner : QStringView();
}

} // namespace ebtq::db
