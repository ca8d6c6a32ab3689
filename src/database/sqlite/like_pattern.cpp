#include "database/sqlite/like_pattern.h"

#include "database/utf8.h"

#include <QChar>

#include <algorithm>

namespace ebtq::db {

std::u32string folded(std::string_view utf8)
{
    std::u32string result;
    result.reserve(utf8.size());
    for (size_t at = 0; at < utf8.size();)
        result += foldedCharacter(takeCharacter(utf8, at));
    return result;
}

LikePattern::LikePattern(std::string_view utf8)
{
    const std::u32string pattern = folded(utf8);
    for (size_t at = 0; at < pattern.size(); ++at) {
        const char32_t c = pattern[at];
        const size_t close = c == U'[' ? pattern.find(U']', at + 1) : std::u32string::npos;
        if (close != std::u32string::npos) {
            addList(pattern.substr(at + 1, close - at - 1));
            at = close;
        } else if (c == U'%') {
            if (m_parts.empty() || m_parts.back().kind != Kind::Any)
                m_parts.push_back({Kind::Any});
        } else {
            m_parts.push_back({c == U'_' ? Kind::One : Kind::Character, c});
        }
    }
}

void LikePattern::addList(const std::u32string &list)
{
    const bool isOther = list.size() > 1 && list[0] == U'!';
    Part part{isOther ? Kind::OtherThanList : Kind::List};
    for (size_t at = isOther ? 1 : 0; at < list.size(); ++at) {
        const bool isRange = at + 2 < list.size() && list[at + 1] == U'-';
        part.ranges.push_back({list[at], list[isRange ? at + 2 : at]});
        at += isRange ? 2 : 0;
    }
    m_parts.push_back(std::move(part));
}

bool LikePattern::matchesOne(const Part &part, char32_t c)
{
    if (part.kind == Kind::Character)
        return part.character == c;
    if (part.kind == Kind::One)
        return true;
    const bool isListed = std::ranges::any_of(
        part.ranges, [c](const Range &range) { return c >= range.first && c <= range.last; });
    return isListed == (part.kind == Kind::List);
}

/// On a mismatch only the last % is extended by one character: the cost is at most pattern times text.
bool LikePattern::matches(std::string_view utf8) const
{
    const std::u32string text = folded(utf8);
    size_t at = 0;
    size_t part = 0;
    size_t retryAt = 0;
    size_t retryPart = m_parts.size() + 1;
    while (at < text.size()) {
        if (part < m_parts.size() && m_parts[part].kind == Kind::Any) {
            retryPart = ++part;
            retryAt = at;
        } else if (part < m_parts.size() && matchesOne(m_parts[part], text[at])) {
            ++part;
            ++at;
        } else if (retryPart <= m_parts.size()) {
            part = retryPart;
            at = ++retryAt;
        } else {
            return false;
        }
    }
    while (part < m_parts.size() && m_parts[part].kind == Kind::Any)
        ++part;
    return part == m_parts.size();
}

} // namespace ebtq::db
