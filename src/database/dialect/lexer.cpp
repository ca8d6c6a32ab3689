#include "database/dialect/lexer.h"

#include "database/dialect/errors.h"
#include "database/dialect/limits.h"

#include <algorithm>
#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

/// A word of at most eight ASCII letters as one number, without regard to case; 0 for any other word.
constexpr quint64 packed(std::u16string_view word)
{
    quint64 result = 0;
    if (word.size() > 8)
        return 0;
    for (const char16_t c : word) {
        const auto upper = static_cast<char16_t>(c & ~0x20);
        if (upper < u'A' || upper > u'Z')
            return 0;
        result = result << 8 | upper;
    }
    return result;
}

struct KeywordEntry
{
    quint64 key;
    Keyword keyword;
};

constexpr auto sortedKeywords()
{
    std::array entries{
        KeywordEntry{packed(u"and"), Keyword::And},
        KeywordEntry{packed(u"as"), Keyword::As},
        KeywordEntry{packed(u"asc"), Keyword::Asc},
        KeywordEntry{packed(u"between"), Keyword::Between},
        KeywordEntry{packed(u"by"), Keyword::By},
        KeywordEntry{packed(u"delete"), Keyword::Delete},
        KeywordEntry{packed(u"desc"), Keyword::Desc},
        KeywordEntry{packed(u"distinct"), Keyword::Distinct},
        KeywordEntry{packed(u"exists"), Keyword::Exists},
        KeywordEntry{packed(u"false"), Keyword::False},
        KeywordEntry{packed(u"from"), Keyword::From},
        KeywordEntry{packed(u"group"), Keyword::Group},
        KeywordEntry{packed(u"having"), Keyword::Having},
        KeywordEntry{packed(u"in"), Keyword::In},
        KeywordEntry{packed(u"inner"), Keyword::Inner},
        KeywordEntry{packed(u"insert"), Keyword::Insert},
        KeywordEntry{packed(u"into"), Keyword::Into},
        KeywordEntry{packed(u"is"), Keyword::Is},
        KeywordEntry{packed(u"join"), Keyword::Join},
        KeywordEntry{packed(u"left"), Keyword::Left},
        KeywordEntry{packed(u"like"), Keyword::Like},
        KeywordEntry{packed(u"mod"), Keyword::Mod},
        KeywordEntry{packed(u"not"), Keyword::Not},
        KeywordEntry{packed(u"null"), Keyword::Null},
        KeywordEntry{packed(u"on"), Keyword::On},
        KeywordEntry{packed(u"or"), Keyword::Or},
        KeywordEntry{packed(u"order"), Keyword::Order},
        KeywordEntry{packed(u"outer"), Keyword::Outer},
        KeywordEntry{packed(u"right"), Keyword::Right},
        KeywordEntry{packed(u"select"), Keyword::Select},
        KeywordEntry{packed(u"set"), Keyword::Set},
        KeywordEntry{packed(u"top"), Keyword::Top},
        KeywordEntry{packed(u"true"), Keyword::True},
        KeywordEntry{packed(u"update"), Keyword::Update},
        KeywordEntry{packed(u"values"), Keyword::Values},
        KeywordEntry{packed(u"where"), Keyword::Where},
    };
    std::ranges::sort(entries, {}, &KeywordEntry::key);
    return entries;
}

constexpr auto keywords = sortedKeywords();

Keyword keywordOf(QStringView word)
{
    const quint64 key = packed({word.utf16(), static_cast<size_t>(word.size())});
    if (key == 0)
        return Keyword::None;
    const auto found = std::ranges::lower_bound(keywords, key, {}, &KeywordEntry::key);
    return found != keywords.end() && found->key == key ? found->keyword : Keyword::None;
}

struct SymbolEntry
{
    char16_t first;
    char16_t second; ///< 0 for a symbol of one character
    Symbol symbol;
};

/// Two-character symbols stand ahead of the one-character ones that they begin with.
constexpr std::array symbols{
    SymbolEntry{u'<', u'=', Symbol::LessEqual},
    SymbolEntry{u'<', u'>', Symbol::NotEqual},
    SymbolEntry{u'>', u'=', Symbol::GreaterEqual},
    SymbolEntry{u'<', 0, Symbol::Less},
    SymbolEntry{u'>', 0, Symbol::Greater},
    SymbolEntry{u'=', 0, Symbol::Equal},
    SymbolEntry{u',', 0, Symbol::Comma},
    SymbolEntry{u'.', 0, Symbol::Dot},
    SymbolEntry{u'(', 0, Symbol::Open},
    SymbolEntry{u')', 0, Symbol::Close},
    SymbolEntry{u'&', 0, Symbol::Ampersand},
    SymbolEntry{u'+', 0, Symbol::Plus},
    SymbolEntry{u'-', 0, Symbol::Minus},
    SymbolEntry{u'*', 0, Symbol::Star},
    SymbolEntry{u'/', 0, Symbol::Slash},
    SymbolEntry{u'\\', 0, Symbol::Backslash},
    SymbolEntry{u'^', 0, Symbol::Caret},
};

bool isDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

/// The wide blank too: Chinese input methods type it.
bool isBlank(char16_t c)
{
    return c < 0x80 ? c == u' ' || (c >= u'\t' && c <= u'\r') : QChar(c).isSpace();
}

bool isHexDigit(char16_t c)
{
    return isDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

/// Nothing that is named here has a longer name, and no date a longer text.
constexpr qsizetype longestName = 64;

class Lexer
{
public:
    explicit Lexer(QStringView text)
        : m_text(text)
    {}

    std::vector<Token> run()
    {
        m_tokens.reserve(static_cast<size_t>(qMin(m_text.size() / 2, qsizetype(256))) + 2);
        for (skipBlanks(); m_at < m_text.size(); skipBlanks())
            next();
        m_tokens.push_back({m_text.size(), m_text.size(), TokenKind::End});
        return std::move(m_tokens);
    }

private:
    [[nodiscard]] char16_t peek(qsizetype ahead = 0) const
    {
        return m_at + ahead < m_text.size() ? m_text.utf16()[m_at + ahead] : u'\0';
    }

    void skipBlanks()
    {
        while (m_at < m_text.size() && isBlank(peek()))
            ++m_at;
    }

    void add(TokenKind kind, qsizetype length)
    {
        if (m_tokens.size() >= limits::mostTokens)
            fail(m_at, u"语句太长：超过 %1 个词"_s.arg(limits::mostTokens));
        m_tokens.push_back({m_at, m_at + length, kind});
        m_at += length;
    }

    void next()
    {
        const char16_t c = peek();
        if (const qsizetype length = wordLength(); length > 0)
            return addWord(length);
        if (c == u'\'' || c == u'"')
            return addText(c);
        if (c == u'#')
            return addUntil(u'#', TokenKind::Date, TokenKind::UnclosedDate);
        if (c == u'[')
            return addUntil(u']', TokenKind::Bracketed, TokenKind::UnclosedBracket);
        if (isDigit(c) || (c == u'.' && isDigit(peek(1))))
            return addNumber();
        if (c == u'&' && !followsOperand() && isRadixNumber())
            return addRadixNumber();
        addSymbol();
    }

    /// The number of units from `at` on that are one character of a word; 0 when none is.
    [[nodiscard]] qsizetype wordCharacter(qsizetype at, bool first) const
    {
        const char16_t c = m_text.utf16()[at];
        if (c < 0x80) {
            const auto lower = static_cast<char16_t>(c | 0x20);
            return (lower >= u'a' && lower <= u'z') || c == u'_' || (!first && isDigit(c)) ? 1 : 0;
        }
        if (c >= 0x4E00 && c < 0xA000)
            return 1;
        if (QChar::isHighSurrogate(c) && at + 1 < m_text.size() && m_text[at + 1].isLowSurrogate())
            return QChar::isLetterOrNumber(QChar::surrogateToUcs4(c, m_text[at + 1].unicode())) ? 2 : 0;
        return QChar(c).isLetterOrNumber() || (!first && QChar(c).isMark()) ? 1 : 0;
    }

    [[nodiscard]] qsizetype wordLength() const
    {
        qsizetype at = m_at;
        while (at < m_text.size()) {
            const qsizetype length = wordCharacter(at, at == m_at);
            if (length == 0)
                break;
            at += length;
        }
        return at - m_at;
    }

    void addWord(qsizetype length)
    {
        if (length > longestName)
            fail(m_at, u"名称太长：超过 %1 个字符"_s.arg(longestName));
        const Keyword keyword = keywordOf(m_text.sliced(m_at, length));
        add(TokenKind::Word, length);
        m_tokens.back().keyword = keyword;
    }

    /// A doubled delimiter stands for one inside a text.
    void addText(char16_t delimiter)
    {
        qsizetype at = m_at + 1;
        for (;;) {
            at = m_text.indexOf(QChar(delimiter), at);
            if (at < 0)
                return add(TokenKind::UnclosedText, m_text.size() - m_at);
            if (at + 1 >= m_text.size() || m_text[at + 1] != QChar(delimiter))
                return add(TokenKind::Text, at + 1 - m_at);
            at += 2;
        }
    }

    void addUntil(char16_t delimiter, TokenKind kind, TokenKind unclosed)
    {
        const qsizetype at = m_text.indexOf(QChar(delimiter), m_at + 1);
        if (at < 0)
            return add(unclosed, m_text.size() - m_at);
        if (at - m_at > longestName)
            fail(m_at, u"名称或日期太长：超过 %1 个字符"_s.arg(longestName));
        add(kind, at + 1 - m_at);
    }

    [[nodiscard]] qsizetype digits(qsizetype length) const
    {
        while (isDigit(peek(length)))
            ++length;
        return length;
    }

    void addNumber()
    {
        qsizetype length = digits(0);
        if (peek(length) == u'.')
            length = digits(length + 1);
        if ((peek(length) | 0x20) == u'e') {
            const bool isSigned = peek(length + 1) == u'-' || peek(length + 1) == u'+';
            if (isDigit(peek(length + (isSigned ? 2 : 1))))
                length = digits(length + (isSigned ? 2 : 1));
        }
        addNumberUnlessWordFollows(length);
    }

    void addNumberUnlessWordFollows(qsizetype length)
    {
        const qsizetype behind = m_at + length;
        const bool wordFollows = behind < m_text.size() && wordCharacter(behind, false) > 0;
        add(wordFollows ? TokenKind::BadNumber : TokenKind::Number, length);
    }

    /// Behind an operand "&H1" is the joining of a column named H1.
    [[nodiscard]] bool followsOperand() const
    {
        if (m_tokens.empty())
            return false;
        const Token &last = m_tokens.back();
        if (last.kind == TokenKind::Word)
            return last.keyword == Keyword::None;
        return last.kind == TokenKind::Symbol ? last.symbol == Symbol::Close : true;
    }

    [[nodiscard]] bool isRadixNumber() const { return (peek(1) | 0x20) == u'h' && isHexDigit(peek(2)); }

    void addRadixNumber()
    {
        qsizetype length = 2;
        while (isHexDigit(peek(length)))
            ++length;
        addNumberUnlessWordFollows(length);
    }

    void addSymbol()
    {
        const char16_t first = peek();
        const char16_t second = peek(1);
        if ((first == u'-' && second == u'-') || (first == u'/' && second == u'*'))
            return add(TokenKind::Comment, 2);
        if (first == u';')
            return add(TokenKind::Semicolon, 1);
        for (const SymbolEntry &entry : symbols) {
            if (entry.first != first || (entry.second != 0 && entry.second != second))
                continue;
            add(TokenKind::Symbol, entry.second == 0 ? 1 : 2);
            m_tokens.back().symbol = entry.symbol;
            return;
        }
        const bool pair = QChar::isHighSurrogate(first) && QChar::isLowSurrogate(second);
        add(TokenKind::BadCharacter, pair ? 2 : 1);
    }

    QStringView m_text;
    qsizetype m_at = 0;
    std::vector<Token> m_tokens;
};

} // namespace

std::vector<Token> tokenize(QStringView text)
{
    if (text.size() > limits::longestStatement)
        fail(0, u"语句太长：超过 %1 个字符"_s.arg(limits::longestStatement));
    return Lexer(text).run();
}

} // namespace ebtq::db
