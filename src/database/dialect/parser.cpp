#include "database/dialect/parser.h"

#include "database/dialect/errors.h"
#include "database/dialect/limits.h"

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

/// What a lexical error is called; nothing for a kind that is none.
QString lexicalError(TokenKind kind)
{
    switch (kind) {
    case TokenKind::UnclosedText:
        return u"文本缺少结尾的引号"_s;
    case TokenKind::UnclosedDate:
        return u"日期缺少结尾的“#”"_s;
    case TokenKind::UnclosedBracket:
        return u"名称缺少结尾的“]”"_s;
    case TokenKind::Comment:
        return u"语句中不能有注释"_s;
    case TokenKind::Semicolon:
        return u"语句中不能有分号，一次只能执行一条语句"_s;
    case TokenKind::BadNumber:
        return u"数字后面紧跟着文字"_s;
    case TokenKind::BadCharacter:
        return u"不认识的字符"_s;
    default:
        return {};
    }
}

} // namespace

Parser::Level::Level(Parser &parser)
    : m_parser(parser)
{
    if (++m_parser.m_level <= limits::deepestLevel)
        return;
    --m_parser.m_level;
    fail(parser.token().begin, u"语句嵌套过深：超过 %1 层"_s.arg(limits::deepestLevel));
}

const Token &Parser::token(size_t ahead) const
{
    return m_tokens[qMin(m_at + ahead, m_tokens.size() - 1)];
}

QStringView Parser::textOf(const Token &token) const
{
    return m_text.sliced(token.contentBegin(), token.contentEnd() - token.contentBegin());
}

bool Parser::atName() const
{
    return token().kind == TokenKind::Bracketed ||
           (token().kind == TokenKind::Word && token().keyword == Keyword::None);
}

void Parser::unexpected(const QString &expected) const
{
    const Token &found = token();
    if (const QString error = lexicalError(found.kind); !error.isEmpty())
        fail(found.begin, error);
    if (found.kind == TokenKind::End)
        fail(found.begin, u"此处应为%1，而语句到此结束"_s.arg(expected));
    fail(found.begin, u"此处应为%1，而写着%2"_s.arg(
                          expected, quoted(m_text.sliced(found.begin, found.end - found.begin))));
}

QStringView Parser::name(const QString &expected)
{
    if (!atName() || textOf(token()).isEmpty())
        unexpected(expected);
    const QStringView result = textOf(token());
    step();
    return result;
}

Statement Parser::statement()
{
    Statement result = [this]() -> Statement {
        switch (token().keyword) {
        case Keyword::Select:
            return select();
        case Keyword::Insert:
            return insert();
        case Keyword::Update:
            return update();
        case Keyword::Delete:
            return deletion();
        default:
            unexpected(u" select、insert、update 或 delete"_s);
        }
    }();
    if (token().kind != TokenKind::End)
        unexpected(u"语句的结尾"_s);
    return result;
}

QStringView Parser::tableAlias()
{
    const bool isNamed = take(Keyword::As);
    return isNamed || atName() ? name(u"别名"_s) : QStringView();
}

Source Parser::table()
{
    const qsizetype position = token().begin;
    const QStringView table = name(u"表名"_s);
    const bool isAliased = at(Keyword::As) || atName();
    return {m_sources++, table, isAliased ? tableAlias() : QStringView(), position, nullptr};
}

ExpressionPtr Parser::where()
{
    return take(Keyword::Where) ? expression() : nullptr;
}

Insert Parser::insert()
{
    step();
    expect(Keyword::Into, u" into"_s);
    const qsizetype position = token().begin;
    Insert result{{m_sources++, name(u"表名"_s), {}, position, nullptr}, {}, {}, nullptr};
    if (take(Symbol::Open)) {
        do
            result.columns.push_back({column(), nullptr});
        while (take(Symbol::Comma));
        expect(Symbol::Close, u"“,”或“)”"_s);
    }
    if (at(Keyword::Select)) {
        result.select = select();
        return result;
    }
    expect(Keyword::Values, u" values 或 select"_s);
    expect(Symbol::Open, u"“(”"_s);
    result.values = values(result.columns);
    expect(Symbol::Close, u"“,”或“)”"_s);
    return result;
}

std::vector<ExpressionPtr> Parser::values(const std::vector<Target> &columns)
{
    std::vector<ExpressionPtr> result;
    do
        result.push_back(result.size() < columns.size() ? valueFor(columns[result.size()]) : expression());
    while (take(Symbol::Comma));
    return result;
}

/// A form writes several dates at once: the message about a wrong one is to name it.
ExpressionPtr Parser::valueFor(const Target &target)
{
    m_written = std::get<ColumnReference>(target.column->node).name;
    ExpressionPtr result = expression();
    m_written = {};
    return result;
}

Update Parser::update()
{
    step();
    Update result{table(), {}, nullptr};
    expect(Keyword::Set, u" set"_s);
    do {
        Target target{column(), nullptr};
        expect(Symbol::Equal, u"“=”"_s);
        target.value = valueFor(target);
        result.assignments.push_back(std::move(target));
    } while (take(Symbol::Comma));
    result.where = where();
    return result;
}

Delete Parser::deletion()
{
    step();
    take(Symbol::Star);
    expect(Keyword::From, u" from"_s);
    Delete result{table(), nullptr};
    result.where = where();
    return result;
}

} // namespace ebtq::db
