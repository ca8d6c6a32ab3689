#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ebtq::db {

/// A parsed like pattern: % any number of characters, _ one, [abc], [a-z] and [!a] one of a list, also
/// the only way to match % and _ literally: [%]. Case is ignored.
class LikePattern
{
public:
    explicit LikePattern(std::string_view utf8);
    [[nodiscard]] bool matches(std::string_view utf8) const;

private:
    enum class Kind : unsigned char { Character, One, List, OtherThanList, Any };
    struct Range
    {
        char32_t first;
        char32_t last;
    };
    struct Part
    {
        Kind kind;
        char32_t character = 0;
        std::vector<Range> ranges = {};
    };

    void addList(const std::u32string &list);
    [[nodiscard]] static bool matchesOne(const Part &part, char32_t c);

    std::vector<Part> m_parts;
};

/// The text's characters with their case folded.
[[nodiscard]] std::u32string folded(std::string_view utf8);

} // namespace ebtq::db
