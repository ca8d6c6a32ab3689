#pragma once

#include <QString>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace ebtq {

/// A text to be found in UTF-8 bytes, with or without regard to case.
///
/// Letters have at most two forms here, of equal length in UTF-8. The few further forms, as U+212A for "k",
/// are `otherForms`: bytes that hold one of them are not to be searched with this class.
class SearchedText
{
public:
    SearchedText(const QString &text, Qt::CaseSensitivity sensitivity);

    [[nodiscard]] std::string_view bytes() const { return m_text; }
    [[nodiscard]] const std::vector<std::string> &otherForms() const { return m_otherForms; }
    /// Whether `bytes` are the text's own from `at` on, which has at least as many left.
    [[nodiscard]] bool standsIn(std::string_view bytes, size_t at) const
    {
        return bytes.empty() || std::string_view(m_text).substr(at, bytes.size()) == bytes ||
               (m_hasCase && standsInOtherCase(bytes, at));
    }

    /// A piece of the text, to be found in one pass.
    struct Part
    {
        size_t begin = 0;
        size_t size = 0;
        size_t one = 0;   ///< from `begin` on, the bytes that are looked at
        size_t other = 0; ///< the same as `one` in a part of one letter
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
    /// Chooses the bytes that are looked at; gives how often both are to be expected.
    [[nodiscard]] size_t chooseBytes(Part &part, const Counts &counts) const;

    std::string m_text;
    std::string m_inOtherCase; ///< as long as m_text, letter by letter; the same where case counts
    bool m_hasCase = false;
    std::vector<std::string> m_otherForms;
};

/// One pass over bytes for a part of a text. It looks at two bytes of the part, each in both cases; only
/// where both stand the part itself is compared.
class TextScan
{
public:
    /// Text and bytes have to stay as long as the scan.
    TextScan(const SearchedText &text, const SearchedText::Part &part, std::string_view bytes);

    /// Where the part stands first, at `from` or later; npos when it does not. `from` only grows.
    [[nodiscard]] size_t next(size_t from);

private:
    static constexpr size_t stride = 128;
    using Marks = std::array<quint8, stride>;
    /// Compared where both cases are alike; what else that lets through is sorted out with the part.
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
