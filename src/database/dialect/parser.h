#pragma once

#include "database/dialect/lexer.h"
#include "database/dialect/tree.h"

namespace ebtq::db {

/// Reads the tokens of one statement into its tree, one function a clause, with one-token lookahead and no
/// backtracking: the token at which reading stops is the furthest that can be reached, and its message says
/// what was expected there. Throws DialectError. Names are not resolved.
class Parser
{
public:
    Parser(QStringView text, const std::vector<Token> &tokens)
        : m_text(text)
        , m_tokens(tokens)
    {}
    [[nodiscard]] Statement statement();

private:
    class Level;

    [[nodiscard]] const Token &token(size_t ahead = 0) const;
    [[nodiscard]] QStringView textOf(const Token &token) const;
    [[nodiscard]] bool at(Symbol symbol) const { return token().symbol == symbol; }
    [[nodiscard]] bool at(Keyword keyword) const { return token().keyword == keyword; }
    [[nodiscard]] bool atName() const;
    template<class T> bool take(T what);
    template<class T> void expect(T what, const QString &expected);
    [[noreturn]] void unexpected(const QString &expected) const;
    QStringView name(const QString &expected);
    void step() { ++m_at; }

    SelectPtr select();
    void top(Select &select);
    void selectItems(Select &select);
    SelectItem selectItem();
    void from(Select &select);
    FromItem joined(Select &select);
    FromItem joinPart(Select &select);
    FromItem source(Select &select);
    std::optional<JoinKind> joinKind();
    void groupBy(Select &select);
    void orderBy(Select &select);
    ExpressionPtr valueFor(const Target &target);
    ExpressionPtr where();
    QStringView tableAlias();
    Source table();
    Insert insert();
    std::vector<ExpressionPtr> values(const std::vector<Target> &columns);
    Update update();
    Delete deletion();

    ExpressionPtr expression();
    ExpressionPtr disjunction();
    ExpressionPtr conjunction();
    ExpressionPtr negatedCondition();
    ExpressionPtr comparison();
    ExpressionPtr test(ExpressionPtr left, bool negated);
    ExpressionPtr listTest(ExpressionPtr left, bool negated);
    ExpressionPtr nullTest(ExpressionPtr left);
    ExpressionPtr chain(size_t rank);
    ExpressionPtr signedOperand();
    ExpressionPtr power();
    ExpressionPtr primary();
    ExpressionPtr word();
    ExpressionPtr literal();
    ExpressionPtr bracket();
    ExpressionPtr call();
    void arguments(Call &call);
    ExpressionPtr column();
    ExpressionPtr textLiteral();
    ExpressionPtr numberLiteral();
    ExpressionPtr dateLiteral();
    std::vector<ExpressionPtr> expressions();
    void addLink(ExpressionPtr &first, Operator op, ExpressionPtr operand, bool isChain);
    template<class T> ExpressionPtr make(T node, qsizetype begin);

    QStringView m_text;
    const std::vector<Token> &m_tokens;
    QStringView m_written; ///< the column that the value being read is for; empty when for none
    size_t m_at = 0;
    int m_level = 0;
    int m_sources = 0;
};

/// Limits the nesting depth to what statements need, before the stack of this program or of an engine
/// overflows.
class Parser::Level
{
public:
    explicit Level(Parser &parser);
    Level(const Level &) = delete;
    Level &operator=(const Level &) = delete;
    ~Level() { --m_parser.m_level; }

private:
    Parser &m_parser;
};

template<class T> bool Parser::take(T what)
{
    if (!at(what))
        return false;
    step();
    return true;
}

template<class T> void Parser::expect(T what, const QString &expected)
{
    if (!take(what))
        unexpected(expected);
}

template<class T> ExpressionPtr Parser::make(T node, qsizetype begin)
{
    const qsizetype end = m_at == 0 ? 0 : m_tokens[m_at - 1].end;
    return std::make_unique<Expression>(Expression{std::move(node), begin, end});
}

} // namespace ebtq::db
