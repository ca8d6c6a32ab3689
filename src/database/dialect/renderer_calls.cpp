#include "database/dialect/limits.h"
#include "database/dialect/renderer.h"
#include "database/dialect/text_match.h"
#include "database/values/date_text.h"
#include "database/values/number_text.h"

#include <cmath>

namespace ebtq::db {

namespace {

bool isNeverNull(const Expression &expression)
{
    const auto *chain = expression.as<Chain>();
    return chain && chain->links.front().op == Operator::Concatenate;
}

/// The text that a literal joins as; nothing for what is no literal.
std::optional<QString> joinedLiteral(const Expression &expression)
{
    if (expression.as<NullLiteral>())
        return QString();
    if (const auto *text = expression.as<TextLiteral>())
        return text->value;
    if (const auto *number = expression.as<NumberLiteral>())
        return numberString(number->value);
    const auto *date = expression.as<DateLiteral>();
    if (!date)
        return std::nullopt;
    std::string regional;
    appendRegionalDate(date->stored.toStdString(), regional);
    return QString::fromStdString(regional);
}

bool startsAtOne(const Expression &expression)
{
    const auto *number = expression.as<NumberLiteral>();
    return number && number->value == 1;
}

} // namespace

void Renderer::node(const Call &call, const Expression &self)
{
    switch (call.function->form) {
    case Function::Form::Iif:
        return conditional(call, self);
    case Function::Form::Switch:
        return switched(call, self);
    case Function::Form::Choose:
        return chosen(call, self);
    case Function::Form::Instr:
        return instr(call, self);
    case Function::Form::Conversion:
        if (call.arguments[0]->type == Type::Null)
            return typedNull(*call.arguments[0], self.type);
        return value(*call.arguments[0]);
    case Function::Form::IsNull:
        operand(*call.arguments[0]);
        return write(" IS NULL");
    case Function::Form::Count:
    case Function::Form::Aggregate:
        return aggregate(call, self);
    default:
        return plainCall(call, self);
    }
}

void Renderer::plainCall(const Call &call, const Expression &self)
{
    const OpenTokens open(*this, call.arguments.size() > 1 ? open_tokens::call : open_tokens::singleArgument,
                          self.position);
    if (call.function->form == Function::Form::Nz)
        write("coalesce(");
    else
        beginCall(call.function->engineName ? call.function->engineName : call.function->name);
    list(call.arguments);
    write(')');
}

/// Distinct and sorted values are compared without regard to case.
void Renderer::aggregate(const Call &call, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::call, self.position);
    write(call.function->name);
    write(call.isDistinct ? "(DISTINCT " : "(");
    const bool isReal = m_dialect.wholeNumbersOverflow && !call.isStar &&
                        (qstrcmp(call.function->name, "avg") == 0 || call.arguments[0]->type == Type::Null);
    if (call.isStar)
        write('*');
    else if (isReal)
        real(*call.arguments[0]);
    else
        caseless(*call.arguments[0]);
    write(')');
}

/// An iif as third argument becomes one more branch, so that a long sequence of them is not deeply nested.
void Renderer::conditional(const Call &call, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::caseForm, self.position);
    write("CASE");
    const Call *each = &call;
    for (;;) {
        write(" WHEN ");
        condition(*each->arguments[0]);
        write(" THEN ");
        value(*each->arguments[1]);
        const auto *next = each->arguments[2]->as<Call>();
        if (!next || next->function->form != Function::Form::Iif)
            break;
        each = next;
    }
    write(" ELSE ");
    value(*each->arguments[2]);
    write(" END");
}

void Renderer::switched(const Call &call, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::caseForm, self.position);
    write("CASE");
    for (size_t at = 0; at < call.arguments.size(); at += 2) {
        write(" WHEN ");
        condition(*call.arguments[at]);
        write(" THEN ");
        value(*call.arguments[at + 1]);
    }
    write(" END");
}

void Renderer::chosen(const Call &call, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::caseForm, self.position);
    write("CASE ");
    if (call.arguments[0]->type == Type::Null)
        real(*call.arguments[0]);
    else
        value(*call.arguments[0]);
    for (size_t at = 1; at < call.arguments.size(); ++at) {
        write(" WHEN ");
        m_out.append(QByteArray::number(static_cast<qulonglong>(at)));
        write(" THEN ");
        value(*call.arguments[at]);
    }
    write(" END");
}

/// The engine's built-in search suffices where case cannot matter, as in the statements of every list.
void Renderer::instr(const Call &call, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::call, self.position);
    const bool hasStart = call.arguments.size() == 3;
    const size_t at = hasStart ? 1 : 0;
    const auto *sought = call.arguments[at + 1]->as<TextLiteral>();
    const bool isPlain = sought && !sought->value.isEmpty() && isCaseless(sought->value) &&
                         (!hasStart || startsAtOne(*call.arguments[0]));
    if (isPlain) {
        write(m_dialect.position);
        write('(');
    } else {
        beginCall("instr");
        if (!hasStart)
            write("1,");
    }
    list(call.arguments, isPlain ? at : 0);
    write(')');
}

void Renderer::concatenation(const Chain &chain)
{
    const OpenTokens open(*this, open_tokens::call, chain.first->position);
    std::vector<const Expression *> operands{chain.first.get()};
    for (const Chain::Link &link : chain.links)
        operands.push_back(link.operand.get());
    if (m_dialect.joinFunction[0] != '\0')
        return joinedByFunction(operands);
    for (size_t at = 0; at < operands.size(); ++at) {
        if (at > 0)
            write("||");
        joined(*operands[at]);
    }
}

/// Engines limit the arguments of one call; a longer chain becomes several calls.
void Renderer::joinedByFunction(const std::vector<const Expression *> &operands)
{
    for (size_t at = 0; at < operands.size(); ++at) {
        if (at % limits::mostArguments == 0) {
            write(at == 0 ? "" : ")||");
            beginCall(m_dialect.joinFunction);
        } else {
            write(',');
        }
        joinArgument(*operands[at]);
    }
    write(')');
}

void Renderer::joinArgument(const Expression &expression)
{
    if (const auto text = joinedLiteral(expression))
        textLiteral(*text);
    else if (expression.type == Type::Date)
        asText(expression);
    else
        value(expression);
}

/// One operand of & as a text for ||, Null as empty.
void Renderer::joined(const Expression &expression)
{
    if (const auto text = joinedLiteral(expression))
        return textLiteral(*text);
    if (isNeverNull(expression))
        return operand(expression);
    write("coalesce(");
    asText(expression);
    write(",'')");
}

/// A value of any type but binary as a text, Null as Null.
void Renderer::asText(const Expression &expression)
{
    const OpenTokens open(*this, open_tokens::singleArgument, expression.position);
    if (expression.type == Type::Text || expression.type == Type::Null)
        return value(expression);
    beginCall(expression.type == Type::Date ? "datetext" : "text");
    value(expression);
    write(')');
}

} // namespace ebtq::db
