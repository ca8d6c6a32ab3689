#include "database/dialect/errors.h"
#include "database/dialect/limits.h"
#include "database/dialect/parser.h"
#include "database/values/date_text.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

struct RankedSymbol
{
    Symbol symbol;
    Operator op;
};

/// The joining operators from the weakest to the strongest rank. `mod` is a word and handled separately.
struct Rank
{
    std::array<RankedSymbol, 2> symbols;
    Keyword keyword = Keyword::None;
};

constexpr std::array ranks{
    Rank{{{{Symbol::Ampersand, Operator::Concatenate}, {Symbol::Ampersand, Operator::Concatenate}}}},
    Rank{{{{Symbol::Plus, Operator::Add}, {Symbol::Minus, Operator::Subtract}}}},
    Rank{{{{Symbol::None, Operator::Modulo}, {Symbol::None, Operator::Modulo}}}, Keyword::Mod},
    Rank{{{{Symbol::Backslash, Operator::IntegerDivide}, {Symbol::Backslash, Operator::IntegerDivide}}}},
    Rank{{{{Symbol::Star, Operator::Multiply}, {Symbol::Slash, Operator::Divide}}}},
};

std::optional<Operator> operatorAt(const Token &token, const Rank &rank)
{
    if (rank.keyword != Keyword::None)
        return token.keyword == rank.keyword ? std::optional(rank.symbols[0].op) : std::nullopt;
    if (token.symbol == Symbol::None)
        return std::nullopt;
    const auto found = std::ranges::find(rank.symbols, token.symbol, &RankedSymbol::symbol);
    return found == rank.symbols.end() ? std::nullopt : std::optional(found->op);
}

std::optional<Operator> comparisonOperator(Symbol symbol)
{
    switch (symbol) {
    case Symbol::Equal:
        return Operator::Equal;
    case Symbol::NotEqual:
        return Operator::NotEqual;
    case Symbol::Less:
        return Operator::Less;
    case Symbol::LessEqual:
        return Operator::LessOrEqual;
    case Symbol::Greater:
        return Operator::Greater;
    case Symbol::GreaterEqual:
        return Operator::GreaterOrEqual;
    default:
        return std::nullopt;
    }
}

} // namespace

ExpressionPtr Parser::expression()
{
    const Level level(*this);
    return disjunction();
}

std::vector<ExpressionPtr> Parser::expressions()
{
    std::vector<ExpressionPtr> result;
    do
        result.push_back(expression());
    while (take(Symbol::Comma));
    return result;
}

/// Joins an operand on: to the chain that `first` is, or to a new one. A chain in brackets is an operand and
/// no chain to go on with.
void Parser::addLink(ExpressionPtr &first, Operator op, ExpressionPtr operand, bool isChain)
{
    const qsizetype begin = first->position;
    if (!isChain)
        first = make(Chain{std::move(first), {}}, begin);
    std::vector<Chain::Link> &links = first->as<Chain>()->links;
    if (links.size() >= limits::longestChain)
        fail(operand->position, u"算式太长：超过 %1 项"_s.arg(limits::longestChain));
    first->end = operand->end;
    links.push_back({op, std::move(operand)});
}

ExpressionPtr Parser::disjunction()
{
    ExpressionPtr result = conjunction();
    for (bool isChain = false; take(Keyword::Or); isChain = true)
        addLink(result, Operator::Or, conjunction(), isChain);
    return result;
}

ExpressionPtr Parser::conjunction()
{
    ExpressionPtr result = negatedCondition();
    for (bool isChain = false; take(Keyword::And); isChain = true)
        addLink(result, Operator::And, negatedCondition(), isChain);
    return result;
}

ExpressionPtr Parser::negatedCondition()
{
    const qsizetype begin = token().begin;
    if (!take(Keyword::Not))
        return comparison();
    const Level level(*this);
    ExpressionPtr operand = negatedCondition();
    return make(Not{std::move(operand)}, begin);
}

ExpressionPtr Parser::comparison()
{
    ExpressionPtr left = chain(0);
    const qsizetype begin = left->position;
    for (size_t length = 0;; ++length) {
        if (length > limits::longestChain / 10)
            fail(token().begin, u"比较太多"_s);
        if (const auto op = comparisonOperator(token().symbol)) {
            step();
            ExpressionPtr right = chain(0);
            left = make(Comparison{*op, std::move(left), std::move(right)}, begin);
            continue;
        }
        const bool negated = at(Keyword::Not);
        const Keyword keyword = token(negated ? 1 : 0).keyword;
        if (keyword == Keyword::Is && !negated)
            left = nullTest(std::move(left));
        else if (keyword == Keyword::Like || keyword == Keyword::In || keyword == Keyword::Between)
            left = test(std::move(left), negated);
        else
            return left;
    }
}

ExpressionPtr Parser::nullTest(ExpressionPtr left)
{
    step();
    const qsizetype begin = left->position;
    const bool negated = take(Keyword::Not);
    expect(Keyword::Null, u" null 或 not null"_s);
    return make(NullTest{negated, std::move(left)}, begin);
}

ExpressionPtr Parser::test(ExpressionPtr left, bool negated)
{
    if (negated)
        step();
    const qsizetype begin = left->position;
    if (take(Keyword::Like)) {
        ExpressionPtr pattern = chain(0);
        return make(LikeTest{negated, std::move(left), std::move(pattern)}, begin);
    }
    if (take(Keyword::In))
        return listTest(std::move(left), negated);
    step();
    ExpressionPtr low = chain(0);
    expect(Keyword::And, u" and"_s);
    ExpressionPtr high = chain(0);
    return make(RangeTest{negated, std::move(left), std::move(low), std::move(high)}, begin);
}

ExpressionPtr Parser::listTest(ExpressionPtr left, bool negated)
{
    const qsizetype begin = left->position;
    expect(Symbol::Open, u"“(”"_s);
    ExpressionPtr result;
    if (at(Keyword::Select))
        result = make(SelectTest{negated, std::move(left), select()}, begin);
    else
        result = make(ListTest{negated, std::move(left), expressions()}, begin);
    expect(Symbol::Close, u"“,”或“)”"_s);
    return result;
}

ExpressionPtr Parser::chain(size_t rank)
{
    if (rank == ranks.size())
        return signedOperand();
    ExpressionPtr result = chain(rank + 1);
    for (bool isChain = false;; isChain = true) {
        const auto op = operatorAt(token(), ranks[rank]);
        if (!op)
            return result;
        step();
        addLink(result, *op, chain(rank + 1), isChain);
    }
}

ExpressionPtr Parser::signedOperand()
{
    const qsizetype begin = token().begin;
    const bool isNegative = at(Symbol::Minus);
    if (!isNegative && !at(Symbol::Plus))
        return power();
    const Level level(*this);
    step();
    ExpressionPtr operand = signedOperand();
    if (!isNegative)
        return operand;
    if (NumberLiteral *number = operand->as<NumberLiteral>(); number && number->value >= 0) {
        number->value = -number->value;
        return operand;
    }
    return make(Negation{std::move(operand)}, begin);
}

ExpressionPtr Parser::power()
{
    ExpressionPtr result = primary();
    for (bool isChain = false; take(Symbol::Caret); isChain = true) {
        const bool isSigned = at(Symbol::Minus) || at(Symbol::Plus);
        addLink(result, Operator::Power, isSigned ? signedOperand() : primary(), isChain);
    }
    return result;
}

ExpressionPtr Parser::primary()
{
    switch (token().kind) {
    case TokenKind::Text:
        return textLiteral();
    case TokenKind::Number:
        return numberLiteral();
    case TokenKind::Date:
        return dateLiteral();
    case TokenKind::Bracketed:
        return column();
    case TokenKind::Word:
        return word();
    default:
        if (!at(Symbol::Open))
            unexpected(u"列名、值或函数"_s);
        return bracket();
    }
}

ExpressionPtr Parser::word()
{
    const bool isCall = token(1).symbol == Symbol::Open;
    switch (token().keyword) {
    case Keyword::None:
        return isCall ? call() : column();
    case Keyword::Left:
    case Keyword::Right:
    case Keyword::Asc:
        if (isCall)
            return call();
        unexpected(u"列名、值或函数"_s);
    case Keyword::Exists: {
        const qsizetype begin = token().begin;
        step();
        if (token(1).keyword != Keyword::Select)
            unexpected(u"“(select …)”"_s);
        expect(Symbol::Open, u"“(select …)”"_s);
        SelectPtr inner = select();
        expect(Symbol::Close, u"“)”"_s);
        return make(ExistsTest{std::move(inner)}, begin);
    }
    default:
        return literal();
    }
}

ExpressionPtr Parser::literal()
{
    const qsizetype begin = token().begin;
    if (take(Keyword::Null))
        return make(NullLiteral{}, begin);
    if (take(Keyword::True))
        return make(NumberLiteral{-1}, begin);
    if (take(Keyword::False))
        return make(NumberLiteral{0}, begin);
    unexpected(u"列名、值或函数"_s);
}

ExpressionPtr Parser::bracket()
{
    const qsizetype begin = token().begin;
    step();
    ExpressionPtr result;
    if (at(Keyword::Select))
        result = make(SubSelect{select()}, begin);
    else
        result = expression();
    expect(Symbol::Close, u"“)”或运算符"_s);
    return result;
}

ExpressionPtr Parser::call()
{
    const qsizetype begin = token().begin;
    const QStringView written = textOf(token());
    Call call{functionNamed(written), {}};
    if (!call.function)
        fail(begin, u"函数 %1 不存在"_s.arg(written));
    step();
    step();
    arguments(call);
    expect(Symbol::Close, u"“,”或“)”"_s);
    const size_t count = call.arguments.size() + (call.isStar ? 1 : 0);
    if (count < call.function->fewest || count > call.function->most)
        fail(begin, u"函数 %1 的参数个数不对"_s.arg(written));
    return make(std::move(call), begin);
}

void Parser::arguments(Call &call)
{
    if (at(Symbol::Close))
        return;
    call.isStar = call.function->form == Function::Form::Count && take(Symbol::Star);
    if (call.isStar)
        return;
    call.isDistinct = call.function->isAggregate() && take(Keyword::Distinct);
    call.arguments = expressions();
}

ExpressionPtr Parser::column()
{
    const qsizetype begin = token().begin;
    QStringView first = name(u"列名"_s);
    if (!take(Symbol::Dot))
        return make(ColumnReference{{}, first}, begin);
    const QStringView second = name(u"列名"_s);
    return make(ColumnReference{first, second}, begin);
}

ExpressionPtr Parser::textLiteral()
{
    const Token &read = token();
    const QStringView content = textOf(read);
    if (content.contains(QChar(u'\0')) || !content.isValidUtf16())
        fail(read.begin, u"文本中含有无法保存的字符"_s);
    step();
    const QChar delimiter = m_text[read.begin];
    // Most texts have no doubled delimiter and share the statement's memory.
    QString value = QString::fromRawData(content.data(), content.size());
    if (content.contains(delimiter))
        value = content.toString().replace(QString(2, delimiter), QString(delimiter));
    return make(TextLiteral{std::move(value)}, read.begin);
}

ExpressionPtr Parser::numberLiteral()
{
    const Token &read = token();
    const QStringView content = textOf(read);
    bool isRead = false;
    const double value = content.startsWith(u'&')
                             ? static_cast<double>(content.sliced(2).toLongLong(&isRead, 16))
                             : content.toDouble(&isRead);
    if (!isRead || !std::isfinite(value))
        fail(read.begin, u"数字%1太大"_s.arg(quoted(content)));
    step();
    return make(NumberLiteral{value}, read.begin);
}

ExpressionPtr Parser::dateLiteral()
{
    const Token &read = token();
    const auto date = parseDate(textOf(read));
    if (!date) {
        const QString whose = m_written.isEmpty() ? QString() : m_written.toString() + u'：';
        fail(read.begin, u"%1日期有误：%2，应如 2026-9-8"_s.arg(whose, quoted(textOf(read))));
    }
    step();
    return make(DateLiteral{storedDate(*date)}, read.begin);
}

} // namespace ebtq::db
