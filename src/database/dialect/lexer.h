#pragma once

#include <QStringView>

#include <vector>

namespace ebtq::db {

/// What a token of a statement is. Lexical errors are kinds too: the parser reports them where it meets them,
/// and the guard of typed values sees them before that.
enum class TokenKind : quint8 {
    Word,            // fyxx 楼盘ID
    Bracketed,       // [order]
    Text,            // 'it''s' "x"
    Number,          // 12 3.5 1e5 &H1F
    Date,            // #2026-9-8#
    Symbol,          // <=
    End,             // after the last token
    UnclosedText,    // 'abc
    UnclosedDate,    // #2026
    UnclosedBracket, // [abc
    Comment,         // -- or /*
    Semicolon,       // ;
    BadNumber,       // 12ab
    BadCharacter,    // ！ or any other character that nothing begins with
};

/// The reserved words. `Left`, `Right` and `Asc` name functions as well when a bracket follows.
enum class Keyword : quint8 {
    None,
    And,
    As,
    Asc,
    Between,
    By,
    Delete,
    Desc,
    Distinct,
    Exists,
    False,
    From,
    Group,
    Having,
    In,
    Inner,
    Insert,
    Into,
    Is,
    Join,
    Left,
    Like,
    Mod,
    Not,
    Null,
    On,
    Or,
    Order,
    Outer,
    Right,
    Select,
    Set,
    Top,
    True,
    Update,
    Values,
    Where,
};

enum class Symbol : quint8 {
    None,
    Plus,
    Minus,
    Star,
    Slash,
    Backslash,
    Caret,
    Ampersand,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Open,
    Close,
    Comma,
    Dot,
};

struct Token
{
    qsizetype begin; ///< with delimiters
    qsizetype end;
    TokenKind kind;
    Keyword keyword = Keyword::None;
    Symbol symbol = Symbol::None;

    [[nodiscard]] bool isDelimited() const
    {
        return kind == TokenKind::Text || kind == TokenKind::Date || kind == TokenKind::Bracketed;
    }
    /// The range of the content, without delimiters.
    [[nodiscard]] qsizetype contentBegin() const { return begin + (isDelimited() ? 1 : 0); }
    [[nodiscard]] qsizetype contentEnd() const { return end - (isDelimited() ? 1 : 0); }
};

/// The tokens of a statement, an End token last. Throws DialectError for a statement that is too long, and
/// for nothing else.
[[nodiscard]] std::vector<Token> tokenize(QStringView text);

} // namespace ebtq::db
