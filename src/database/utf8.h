#pragma once

#include <QChar>

#include <string_view>

namespace ebtq::db {

/// Decodes the character at `at` and advances it. An invalid byte is a character of its own, so that no
/// content of a database can lead outside the text.
inline char32_t takeCharacter(std::string_view utf8, size_t &at)
{
    const auto byte = [&](size_t index) { return static_cast<unsigned char>(utf8[index]); };
    const unsigned char first = byte(at++);
    const size_t more = first < 0xC0 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    if (more == 0 || at + more > utf8.size())
        return first;
    char32_t result = first & (0x3FU >> more);
    for (size_t index = 0; index < more; ++index)
        result = result << 6 | (byte(at++) & 0x3FU);
    return result;
}

/// Lower case, one character for one, as servers fold: a database that is copied to a server finds the same.
[[nodiscard]] inline char32_t foldedCharacter(char32_t c)
{
    constexpr char32_t dottedI = 0x130; // Qt has two characters for its lower case only
    if (c < 0x80)
        return c >= U'A' && c <= U'Z' ? c + 32 : c;
    return c == dottedI ? U'i' : c <= 0x10FFFF ? QChar::toLower(c) : c;
}

} // namespace ebtq::db
