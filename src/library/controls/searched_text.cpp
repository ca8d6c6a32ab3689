#include "library/controls/searched_text.h"

#include <algorithm>
#include <cstring>
#include <set>

namespace ebtq {

namespace {

/// Pairs of a folded letter and each of its forms, itself included.
const std::set<std::pair<char32_t, char32_t>> &foldedLetters()
{
    constexpr char32_t endOfCasedScripts = 0x20000; // ideographs follow
    static const auto letters = [] {
        std::set<std::pair<char32_t, char32_t>> found;
        for (char32_t letter = 0; letter < endOfCasedScripts; ++letter) {
            const char32_t folded = QChar::toCaseFolded(letter);
            if (folded != letter)
                found.insert({{folded, letter}, {folded, folded}});
        }
        return found;
    }();
    return letters;
}

std::string utf8(char32_t letter)
{
    return QString::fromUcs4(&letter, 1).toStdString();
}

} // namespace

SearchedText::SearchedText(const QString &text, Qt::CaseSensitivity sensitivity)
{
    if (sensitivity == Qt::CaseSensitive) {
        m_text = text.toStdString();
        m_inOtherCase = m_text;
        return;
    }
    for (const uint letter : text.toUcs4())
        appendLetter(letter);
    m_hasCase = m_text != m_inOtherCase;
}

void SearchedText::appendLetter(char32_t letter)
{
    const std::string bytes = utf8(letter);
    m_text += bytes;
    const char32_t folded = QChar::toCaseFolded(letter);
    auto form = foldedLetters().lower_bound({folded, 0});
    for (; form != foldedLetters().end() && form->first == folded; ++form) {
        if (form->second == letter)
            continue;
        const std::string other = utf8(form->second);
        if (other.size() == bytes.size() && m_inOtherCase.size() < m_text.size())
            m_inOtherCase += other;
        else
            m_otherForms.push_back(other);
    }
    if (m_inOtherCase.size() < m_text.size())
        m_inOtherCase += bytes;
}

/// Letter by letter: all bytes of one letter must be of the same case.
bool SearchedText::standsInOtherCase(std::string_view bytes, size_t at) const
{
    bool isText = false;
    bool isOtherCase = false;
    for (size_t offset = 0; offset < bytes.size(); ++offset) {
        const bool begins = !continuesLetter(at + offset);
        isText = (begins || isText) && bytes[offset] == m_text[at + offset];
        isOtherCase = (begins || isOtherCase) && bytes[offset] == m_inOtherCase[at + offset];
        if (!isText && !isOtherCase)
            return false;
    }
    return true;
}

SearchedText::Counts SearchedText::sampleOf(std::string_view bytes)
{
    constexpr size_t stretches = 16;
    constexpr size_t length = 256;
    Counts counts;
    counts.fill(1);
    for (size_t stretch = 0; stretch < stretches; ++stretch) {
        for (const char each : bytes.substr(bytes.size() / stretches * stretch, length))
            ++counts[static_cast<quint8>(each)];
    }
    return counts;
}

size_t SearchedText::frequency(size_t at, const Counts &counts) const
{
    const auto [one, other] = formsOf(at);
    return counts[one] + (one == other ? 0 : counts[other]);
}

/// The second byte is one of another letter, since the bytes of a letter occur together.
size_t SearchedText::chooseBytes(Part &part, const Counts &counts) const
{
    const auto letterAt = [&](size_t at) {
        while (continuesLetter(at))
            --at;
        return at;
    };
    constexpr size_t unknown = 1U << 20U;
    const auto rarest = [&](size_t except) {
        size_t best = part.begin;
        size_t lowest = unknown;
        for (size_t at = part.begin; at < part.begin + part.size; ++at) {
            const size_t often = frequency(at, counts);
            if (often < lowest && letterAt(at) != except) {
                best = at;
                lowest = often;
            }
        }
        return std::pair(best, lowest);
    };
    const auto [one, oneOften] = rarest(std::string::npos);
    const auto [other, otherOften] = rarest(letterAt(one));
    part.one = one - part.begin;
    part.other = otherOften == unknown ? part.one : other - part.begin;
    return oneOften * otherOften;
}

SearchedText::Part SearchedText::rarestPart(std::string_view bytes) const
{
    const Counts counts = sampleOf(bytes);
    Part rarest;
    size_t lowest = std::string::npos;
    for (size_t begin = 0; begin < m_text.size();) {
        const size_t end = std::min(m_text.find('%', begin), m_text.size());
        if (end > begin) {
            Part part{begin, end - begin};
            const size_t often = chooseBytes(part, counts);
            if (often < lowest) {
                rarest = part;
                lowest = often;
            }
        }
        begin = end + 1;
    }
    return rarest;
}

TextScan::TextScan(const SearchedText &text, const SearchedText::Part &part, std::string_view bytes)
    : m_text(text)
    , m_part(part)
    , m_bytes(bytes)
    , m_places(bytes.size() < part.size ? 0 : bytes.size() - part.size + 1)
    , m_one(text, part.begin + part.one)
    , m_other(text, part.begin + part.other)
{}

size_t TextScan::next(size_t from)
{
    for (size_t at = from; at < m_places; ++at) {
        if (at >= m_end && !markFrom(at))
            break;
        at = std::max(at, m_begin);
        const void *found = std::memchr(&m_marks[at - m_begin], 1, m_end - at);
        if (!found) {
            at = m_end - 1;
            continue;
        }
        at = m_begin + static_cast<size_t>(static_cast<const quint8 *>(found) - m_marks.data());
        if (m_text.standsIn(m_bytes.substr(at, m_part.size), m_part.begin))
            return at;
    }
    return std::string_view::npos;
}

/// Advances to the next stretch with a mark. Compilers vectorise the inner loop: no branch, a constant count.
/// Where there are fewer places, each of them is compared.
bool TextScan::markFrom(size_t from)
{
    if (m_places < stride) {
        m_end = m_places;
        m_marks.fill(1);
        return true;
    }
    const auto [maskOfOne, one] = m_one;
    const auto [maskOfOther, other] = m_other;
    for (size_t at = from; at < m_places; at += stride) {
        at = std::min(at, m_places - stride);
        const auto *bytes = reinterpret_cast<const quint8 *>(m_bytes.data()) + at;
        const quint8 *ones = bytes + m_part.one;
        const quint8 *others = bytes + m_part.other;
        Marks marks;
        quint8 any = 0;
        for (size_t place = 0; place < stride; ++place) {
            marks[place] = ((ones[place] & maskOfOne) == one) & ((others[place] & maskOfOther) == other);
            any |= marks[place];
        }
        if (any != 0) {
            m_begin = at;
            m_end = at + stride;
            m_marks = marks;
            return true;
        }
    }
    return false;
}

} // namespace ebtq
