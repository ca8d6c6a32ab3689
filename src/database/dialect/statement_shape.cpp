#include "database/dialect/statement_shape.h"

#include "database/dialect/lexer.h"
#include "database/dialect/translator.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

constexpr qsizetype longestText = 8 * 1024;
constexpr size_t mostValues = 9;
/// Signs of the kinds, and of values that come again, in a shape's text: private characters, which no
/// statement of a module has.
constexpr char16_t firstSign = 0xE000;
constexpr char16_t firstRepeated = 0xE100;

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isHexLetter(QChar c)
{
    return (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
}

/// Eight, four, four, four and twelve hexadecimal digits.
bool isKey(QStringView text)
{
    constexpr qsizetype length = 36;
    if (text.size() != length || std::none_of(text.begin(), text.end(), isHexLetter))
        return false;
    for (qsizetype at = 0; at < length; ++at) {
        const bool isDash = at == 8 || at == 13 || at == 18 || at == 23;
        if (isDash ? text[at] != u'-' : !isDigit(text[at]) && !isHexLetter(text[at]))
            return false;
    }
    return true;
}

/// At most nine digits without a leading zero.
bool isWhole(QStringView text)
{
    constexpr qsizetype mostDigits = 9;
    return !text.isEmpty() && text.size() <= mostDigits && text.front() != u'0' &&
           std::all_of(text.begin(), text.end(), isDigit);
}

/// The same with up to four decimals, of which the last is not zero.
bool isDecimal(QStringView text)
{
    constexpr qsizetype mostDecimals = 4;
    const qsizetype point = text.indexOf(u'.');
    const QStringView decimals = point < 0 ? QStringView() : text.sliced(point + 1);
    return isWhole(text.first(std::max<qsizetype>(point, 0))) && !decimals.isEmpty() &&
           decimals.size() <= mostDecimals && decimals.back() != u'0' &&
           std::all_of(decimals.begin(), decimals.end(), isDigit);
}

using TokenAt = std::vector<Token>::const_iterator;

/// Not within brackets, and before the condition.
bool isAmongAssignments(const std::vector<Token> &tokens, TokenAt token)
{
    int depth = 0;
    for (auto at = tokens.begin(); at != token; ++at) {
        if (at->keyword == Keyword::Where)
            return false;
        depth += (at->symbol == Symbol::Open ? 1 : 0) - (at->symbol == Symbol::Close ? 1 : 0);
    }
    return depth == 0 && tokens.front().keyword == Keyword::Update;
}

/// "set a='text'," or ",a='text' where": the whole value of a column.
bool isAssigned(const std::vector<Token> &tokens, TokenAt token)
{
    constexpr int wordsBefore = 3;
    if (!isAmongAssignments(tokens, token) || token - tokens.begin() < wordsBefore)
        return false;
    const Token &before = *std::prev(token, wordsBefore);
    const Token &after = *std::next(token);
    return std::prev(token)->symbol == Symbol::Equal &&
           (before.keyword == Keyword::Set || before.symbol == Symbol::Comma) &&
           (after.keyword == Keyword::Where || after.symbol == Symbol::Comma);
}

bool isPlain(QStringView text)
{
    return std::none_of(text.begin(), text.end(), [](QChar c) { return c < u' '; });
}

std::optional<StatementShape::Kind> kindOfText(const SqlText &statement, QStringView value,
                                               const std::vector<Token> &tokens, TokenAt token)
{
    using enum StatementShape::Kind;
    if (statement.text()[token->begin] != u'\'')
        return std::nullopt;
    if (isKey(value))
        return Key;
    return isAssigned(tokens, token) && isPlain(value) ? std::optional(Assigned) : std::nullopt;
}

/// Nothing unless the value is a whole literal and, if a number, the whole side of a comparison.
std::optional<StatementShape::Kind> kindOf(const SqlText &statement, const SqlText::Span &span,
                                           const std::vector<Token> &tokens, TokenAt at)
{
    using enum StatementShape::Kind;
    const Token &token = *at;
    const QStringView text = statement.text();
    if (span.begin != token.contentBegin() || span.end() != token.contentEnd())
        return std::nullopt;
    const QStringView value = text.sliced(span.begin, span.length);
    if (token.kind == TokenKind::Text)
        return kindOfText(statement, value, tokens, at);
    const QChar before = span.begin > 0 ? text[span.begin - 1] : QChar();
    const QChar after = span.end() < text.size() ? text[span.end()] : QChar(u' ');
    const bool isCompared = before == u'=' || before == u'<' || before == u'>';
    if (token.kind != TokenKind::Number || !isCompared || (after != u' ' && after != u')'))
        return std::nullopt;
    return isWhole(value) ? std::optional(Whole) : isDecimal(value) ? std::optional(Decimal) : std::nullopt;
}

/// Empty for a text that the lexer refuses: the translation reports why.
std::vector<Token> tokensOf(const SqlText &statement)
{
    try {
        return statement.typedSpans().isEmpty() ? std::vector<Token>() : tokenize(statement.text());
    } catch (const DialectError &) {
        return {};
    }
}

bool isPrivate(QChar c)
{
    return c >= QChar(firstSign) && c <= QChar(char16_t(0xF8FF));
}

bool continuesLiteral(char c)
{
    return (c >= '0' && c <= '9') || c == '.' || c == '\'' || c == '_' || (c >= 'A' && c <= 'Z') ||
           (c >= 'a' && c <= 'z');
}

} // namespace

std::optional<StatementShape> StatementShape::of(const SqlText &statement)
{
    const QString &text = statement.text();
    if (text.size() > longestText || static_cast<size_t>(statement.typedSpans().size()) > mostValues ||
        std::any_of(text.begin(), text.end(), isPrivate))
        return std::nullopt;
    StatementShape shape;
    shape.m_text.reserve(text.size());
    const std::vector<Token> tokens = tokensOf(statement);
    auto token = tokens.begin();
    qsizetype copied = 0;
    for (const SqlText::Span &span : statement.typedSpans()) {
        token = std::find_if(token, tokens.end(), [&](const Token &each) { return each.end > span.begin; });
        const auto kind = token == tokens.end() ? std::nullopt : kindOf(statement, span, tokens, token);
        if (!kind)
            return std::nullopt;
        shape.m_text += QStringView(text).sliced(copied, span.begin - copied);
        shape.addValue({*kind, QStringView(text).sliced(span.begin, span.length)});
        copied = span.end();
    }
    shape.m_text += QStringView(text).sliced(copied);
    return shape;
}

void StatementShape::addValue(const Value &value)
{
    const auto known = std::find(m_values.begin(), m_values.end(), value);
    if (known != m_values.end()) {
        m_text += QChar(static_cast<char16_t>(firstRepeated + (known - m_values.begin())));
        return;
    }
    m_text += QChar(static_cast<char16_t>(firstSign + static_cast<int>(value.kind)));
    m_values.push_back(value);
}

QString StatementShape::sampleValue(size_t number) const
{
    const QString digit = QString::number(number);
    switch (m_values[number].kind) {
    case Kind::Key:
        return u"ABCDEF00-0000-4000-8000-0000FEDCBA0"_s + digit;
    case Kind::Whole:
        return u"91827364"_s + digit;
    case Kind::Assigned:
        return u"ebtq assigned "_s + digit;
    default:
        return u"91827364"_s + digit + u".5"_s;
    }
}

SqlText StatementShape::sample() const
{
    SqlText result;
    qsizetype copied = 0;
    size_t next = 0;
    for (qsizetype at = 0; at < m_text.size(); ++at) {
        if (!isPrivate(m_text[at]))
            continue;
        const char16_t sign = m_text[at].unicode();
        result += QStringView(m_text).sliced(copied, at - copied);
        result += typed(sampleValue(sign >= firstRepeated ? sign - firstRepeated : next++));
        copied = at + 1;
    }
    result += QStringView(m_text).sliced(copied);
    return result;
}

std::optional<QByteArray> StatementShape::withParameters(QByteArray sql, Extent extent) const
{
    for (size_t number = 0; number < m_values.size(); ++number) {
        QByteArray literal = sampleValue(number).toLatin1();
        // Also when it occurs elsewhere in the statement: then there is no shape.
        if (m_text.contains(QLatin1String(literal)))
            return std::nullopt;
        if (m_values[number].kind == Kind::Key || m_values[number].kind == Kind::Assigned)
            literal = '\'' + literal + '\'';
        const QByteArray parameter = '?' + QByteArray::number(static_cast<int>(number) + 1);
        qsizetype at = sql.indexOf(literal);
        if (at < 0 && extent == Extent::Whole)
            return std::nullopt;
        for (; at >= 0; at = sql.indexOf(literal, at + parameter.size())) {
            const qsizetype end = at + literal.size();
            if ((at > 0 && continuesLiteral(sql[at - 1])) || (end < sql.size() && continuesLiteral(sql[end])))
                return std::nullopt;
            sql.replace(at, literal.size(), parameter);
        }
    }
    return sql;
}

} // namespace ebtq::db
