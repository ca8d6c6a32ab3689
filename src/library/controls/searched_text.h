#pragma once

#include <QString>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace ebtq {

/// A text to be found in UTF-8 bytes, with or without regard to case.
///
/// Letters have at most two forms here, of equal length in UTF-8. The few others, as U+212A for "k", are
/// `otherForms`: bytes that contain one of them must be searched otherwise.
class SearchedText
{
public:
    SearchedText(const QString &text, Qt::CaseSensitivity sensitivity);

    [[nodiscard]] std::string_view bytes() const { return m_text; }
    [[nodiscard]] const std::vector<std::string> &otherForms() const { return m_otherForms; }
    /// Whether `bytes` equal the text from `at`, which has at least as many bytes left.
    [[nodiscard]] bool standsIn(std::string_view bytes, size_t at) const
    {
        return bytes.empty() || std::string_view(m_text).substr(at, bytes.size()) == bytes ||
               (m_hasCase && standsInOtherCase(bytes, at));
    }

    /// A part of the text that is searched in one pass.
    struct Part
    {
        size_t begin = 0;
        size_t size = 0;
        size_t one = 0;   ///< offset from `begin` of the first byte that is compared
        size_t other = 0; ///< of the second one; the same as `one` in a part of one letter
    };
    /// Of the parts between "%" the one that is rarest in the bytes, by a sample; empty when there is none.
    [[nodiscard]] Part rarestPart(std::string_view bytes) const;
    /// A byte of the text, as typed and in the other case.
    [[nodiscard]] std::pair<quint8, quint8> formsOf(size_t at) const
    {
        return {static_cast<quint8>(m_text[at]), static_cast<quint8>(m_inOtherCase[at])};
    }

private:
    using Counts = std::array<quint32, 256>;
    [[nodiscard]] static Counts sampleOf(std::string_view bytes);
    void appendLetter(char32_t letter);
    [[nodiscard]] bool standsInOtherCase(std::string_view bytes, size_t at) const;
    [[nodiscard]] bool continuesLetter(size_t at) const { return (m_text[at] & 0xC0) == 0x80; }
    [[nodiscard]] size_t frequency(size_t at, const Counts &counts) const;
    /// Chooses the bytes that are compared; returns the expected frequency of both.
    [[nodiscard]] size_t chooseBytes(Part &part, const Counts &counts) const;

    std::string m_text;
    std::string m_inOtherCase; ///< as long as m_text, letter by letter; the same where case counts
    bool m_hasCase = false;
    std::vector<std::string> m_otherForms;
};

/// One pass over bytes for a part of a text. It compares two bytes of the part, each in both cases, and the
/// whole part only where both match.
class TextScan
{
public:
    /// Text and bytes must outlive the scan.
    TextScan(const SearchedText &text, const SearchedText::Part &part, std::string_view bytes);

    /// The first occurrence at `from` or later; npos when there is none. `from` must not decrease.
    [[nodiscard]] size_t next(size_t from);

private:
    static constexpr size_t stride = 128;
    using Marks = std::array<quint8, stride>;
    /// Only the bits that both cases share are compared; comparing the part rejects false hits.
    struct Byte
    {
        Byte(const SearchedText &text, size_t at)
            : mask(static_cast<quint8>(~(text.formsOf(at).first ^ text.formsOf(at).second)))
            , wanted(text.formsOf(at).first & mask)
        {}
        quint8 mask;
        quint8 wanted;
    };
    bool markFrom(size_t from);

    const SearchedText &m_text;
    const SearchedText::Part m_part;
    const std::string_view m_bytes;
    const size_t m_places; ///< where the part can begin
    const Byte m_one;
    const Byte m_other;
    Marks m_marks = {}; ///< of the places from m_begin to m_end
    size_t m_begin = 0;
    size_t m_end = 0;
};

} // namespace ebtq
