#include "database/dialect/errors.h"
#include "database/dialect/resolver.h"
#include "database/dialect/types.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

bool isTextOrNull(Type type)
{
    return type == Type::Text || type == Type::Null;
}

/// The range of both, with the greater height.
Expression spanOf(const Expression &left, const Expression &right)
{
    return {NullLiteral{}, left.position, right.end, Type::Null, qMax(left.height, right.height)};
}

} // namespace

Type Resolver::productType(Chain &node)
{
    toNumber(node.first);
    Type type = node.first->type == Type::Number ? Type::Number : Type::Integer;
    for (Chain::Link &link : node.links) {
        toNumber(link.operand);
        if (link.op == Operator::IntegerDivide || link.op == Operator::Modulo)
            type = Type::Integer;
        else if (link.op != Operator::Multiply || link.operand->type == Type::Number)
            type = Type::Number;
    }
    return type;
}

/// Numbers alone stay one chain. With texts and dates among them the meaning of each + and - depends on its
/// two sides.
void Resolver::foldSum(ExpressionPtr &self)
{
    Chain &chain = *self->as<Chain>();
    const auto isPlain = [](const ExpressionPtr &operand) { return isNumericOrNull(operand->type); };
    const bool allPlain =
        isPlain(chain.first) && std::ranges::all_of(chain.links, isPlain, &Chain::Link::operand);
    if (allPlain) {
        const auto isNumber = [](const ExpressionPtr &operand) { return operand->type == Type::Number; };
        const bool anyNumber =
            isNumber(chain.first) || std::ranges::any_of(chain.links, isNumber, &Chain::Link::operand);
        self->type = anyNumber ? Type::Number : Type::Integer;
        return;
    }
    ExpressionPtr result = std::move(chain.first);
    for (Chain::Link &link : chain.links) {
        result = sum(link.op, std::move(result), std::move(link.operand));
        measure(*result);
    }
    self = std::move(result);
}

ExpressionPtr Resolver::sum(Operator op, ExpressionPtr left, ExpressionPtr right)
{
    if (left->type == Type::Date || right->type == Type::Date)
        return dateSum(op, std::move(left), std::move(right));
    if (op != Operator::Add || !isTextOrNull(left->type) || !isTextOrNull(right->type))
        return numericSum(op, std::move(left), std::move(right));
    const Expression at = spanOf(*left, *right);
    std::vector<Chain::Link> links;
    links.push_back({Operator::Append, std::move(right)});
    return makeTyped(Chain{std::move(left), std::move(links)}, at, Type::Text);
}

/// A date and a number of days give a date, two dates the days between them.
ExpressionPtr Resolver::dateSum(Operator op, ExpressionPtr left, ExpressionPtr right)
{
    const Expression at = spanOf(*left, *right);
    const bool areDates = left->type == right->type;
    if (op == Operator::Add && right->type == Type::Date)
        std::swap(left, right);
    if (left->type != Type::Date || (areDates && op == Operator::Add))
        fail(at.position, u"日期不能这样计算"_s);
    Call call{areDates ? &daysBetween : &addDays, {}};
    if (!areDates)
        toNumber(right);
    if (!areDates && op == Operator::Subtract)
        right = makeTyped(Negation{std::move(right)}, at, Type::Number);
    call.arguments.push_back(std::move(left));
    call.arguments.push_back(std::move(right));
    const Type type = call.function->result;
    return makeTyped(std::move(call), at, type);
}

ExpressionPtr Resolver::numericSum(Operator op, ExpressionPtr left, ExpressionPtr right)
{
    toNumber(left);
    toNumber(right);
    const bool isWhole = left->type != Type::Number && right->type != Type::Number;
    const Expression at = spanOf(*left, *right);
    std::vector<Chain::Link> links;
    links.push_back({op, std::move(right)});
    return makeTyped(Chain{std::move(left), std::move(links)}, at, isWhole ? Type::Integer : Type::Number);
}

} // namespace ebtq::db
