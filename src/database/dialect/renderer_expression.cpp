#include "database/dialect/limits.h"
#include "database/dialect/renderer.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace ebtq::db {

namespace {

/// Rendered so that no neighbouring operator can bind to a part of it.
bool isAtomic(const Expression &expression)
{
    const auto *call = expression.as<Call>();
    if (call && call->function->form == Function::Form::Conversion)
        return isAtomic(*call->arguments[0]);
    return !expression.as<Chain>() && expression.type != Type::Condition;
}

const char *wordOf(Operator op)
{
    switch (op) {
    case Operator::Add:
        return "+";
    case Operator::Subtract:
        return "-";
    case Operator::Multiply:
        return "*";
    case Operator::Divide:
        return "/";
    default:
        return "||";
    }
}

} // namespace

/// As a value a condition is -1 for true and 0 for false; Null stays Null.
void Renderer::value(const Expression &expression)
{
    if (m_dialect.typesNull && expression.type == Type::Null)
        return write("NULL");
    if (isTypedText(expression)) {
        write('(');
        std::visit([&](const auto &each) { node(each, expression); }, expression.node);
        write(')');
        return write(m_dialect.caselessType);
    }
    if (expression.type != Type::Condition)
        return std::visit([&](const auto &each) { node(each, expression); }, expression.node);
    const OpenTokens open(*this, open_tokens::condition, expression.position);
    write("(-(");
    bareCondition(expression);
    write(')');
    write(m_dialect.conditionSuffix);
    write(')');
}

void Renderer::bracketed(const Expression &expression, void (Renderer::*writeInside)(const Expression &))
{
    const OpenTokens open(*this, open_tokens::bracket, expression.position);
    write('(');
    (this->*writeInside)(expression);
    write(')');
}

void Renderer::operand(const Expression &expression)
{
    if (isAtomic(expression) || expression.type == Type::Condition)
        value(expression);
    else
        bracketed(expression, &Renderer::value);
}

void Renderer::real(const Expression &expression)
{
    write("CAST(");
    value(expression);
    write(" AS ");
    write(m_dialect.realType);
    write(')');
}

void Renderer::list(const std::vector<ExpressionPtr> &expressions, size_t from)
{
    for (size_t at = from; at < expressions.size(); ++at) {
        if (at > from)
            write(',');
        value(*expressions[at]);
    }
}

void Renderer::beginCall(const char *name)
{
    write(m_dialect.functionPrefix);
    write(name);
    write('(');
}

void Renderer::node(const NullLiteral &, const Expression &)
{
    write("NULL");
}

void Renderer::node(const TextLiteral &literal, const Expression &)
{
    textLiteral(literal.value);
}

/// A negative number is put in brackets: after a minus it would begin a comment.
void Renderer::node(const NumberLiteral &literal, const Expression &)
{
    char text[40];
    const double number = literal.value;
    const bool isWhole =
        number > -9e18 && number < 9e18 && number == static_cast<double>(static_cast<qint64>(number));
    const char *end = isWhole ? std::to_chars(text, text + sizeof text, static_cast<qint64>(number)).ptr
                              : std::to_chars(text, text + sizeof text, number).ptr;
    if (number < 0)
        write('(');
    m_out.append(text, end - text);
    if (number < 0)
        write(')');
    constexpr double sixteenDigits = 1e15;
    if (!isWhole || std::abs(number) >= sixteenDigits)
        write(m_dialect.realSuffix);
}

void Renderer::node(const DateLiteral &literal, const Expression &)
{
    write(m_dialect.datePrefix);
    textLiteral(literal.stored);
}

void Renderer::node(const ColumnReference &reference, const Expression &)
{
    sourceName(reference.source);
    write('.');
    if (!reference.isDerived)
        return identifier(reference.column->name);
    write('c');
    m_out.append(QByteArray::number(reference.index));
}

void Renderer::node(const Negation &negation, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::operation, self.position);
    write("(-");
    if (negation.operand->type == Type::Null)
        real(*negation.operand);
    else
        operand(*negation.operand);
    write(')');
}

void Renderer::node(const SubSelect &inner, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::subSelect, self.position);
    write('(');
    select(*inner.select, false, true);
    write(')');
}

void Renderer::node(const Conversion &conversion, const Expression &self)
{
    if (conversion.operand->type == Type::Null)
        return typedNull(*conversion.operand, self.type);
    if (self.type == Type::Text)
        return asText(*conversion.operand);
    const OpenTokens open(*this, open_tokens::call, self.position);
    beginCall(self.type == Type::Date ? "cdate" : self.type == Type::Integer ? "clng" : "cdbl");
    value(*conversion.operand);
    write(')');
}

/// A bare NULL would have type text, or none at all.
void Renderer::typedNull(const Expression &null, Type type)
{
    const bool isBare = !m_dialect.typesNull || type == Type::Null;
    if (isBare)
        return value(null);
    write("CAST(NULL AS ");
    switch (type) {
    case Type::Date:
        write("timestamp");
        break;
    case Type::Binary:
        write("bytea");
        break;
    case Type::Text:
        write("citext");
        break;
    case Type::Number:
        write(m_dialect.realType);
        break;
    default:
        write("integer");
    }
    write(')');
}

void Renderer::node(const Chain &chain, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::operation, self.position);
    switch (chain.links.front().op) {
    case Operator::And:
        return junction(chain, " AND ");
    case Operator::Or:
        return junction(chain, " OR ");
    case Operator::Concatenate:
        return concatenation(chain);
    case Operator::Multiply:
    case Operator::Divide:
        return quotients(chain);
    case Operator::IntegerDivide:
    case Operator::Modulo:
    case Operator::Power:
        return nestedCalls(chain, self);
    default:
        return arithmetic(chain);
    }
}

void Renderer::arithmetic(const Chain &chain)
{
    const bool isText = chain.links.front().op == Operator::Append;
    if (m_dialect.wholeNumbersOverflow && !isText)
        real(*chain.first);
    else
        operand(*chain.first);
    for (const Chain::Link &link : chain.links) {
        write(wordOf(link.op));
        operand(*link.operand);
    }
}

/// Division is floating-point division, also of integers, and by 0 it gives Null.
void Renderer::quotients(const Chain &chain)
{
    const bool divides =
        std::ranges::find(chain.links, Operator::Divide, &Chain::Link::op) != chain.links.end();
    if (!divides)
        return arithmetic(chain);
    const OpenTokens open(*this, open_tokens::operation, chain.first->position);
    real(*chain.first);
    for (const Chain::Link &link : chain.links) {
        write(wordOf(link.op));
        const bool isGuarded = m_dialect.zeroDivisionFails && link.op == Operator::Divide;
        if (isGuarded)
            write("nullif(");
        operand(*link.operand);
        if (isGuarded)
            write(",0)");
    }
}

/// a \ b \ c as f(f(a,b),c).
void Renderer::nestedCalls(const Chain &chain, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::call * static_cast<int>(chain.links.size()), self.position);
    for (auto link = chain.links.rbegin(); link != chain.links.rend(); ++link)
        beginCall(link->op == Operator::Power ? "power" : link->op == Operator::Modulo ? "mod" : "intdiv");
    value(*chain.first);
    for (const Chain::Link &link : chain.links) {
        write(',');
        value(*link.operand);
        write(')');
    }
}

} // namespace ebtq::db
