#include "database/dialect/errors.h"
#include "database/dialect/limits.h"
#include "database/dialect/resolver.h"
#include "database/dialect/tree_walk.h"
#include "database/dialect/types.h"

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

bool isLogical(Operator op)
{
    return op == Operator::And || op == Operator::Or;
}

} // namespace

void Resolver::expression(ExpressionPtr &self, Scope &scope)
{
    self->type = std::visit([&](auto &node) { return infer(node, *self, scope); }, self->node);
    measure(*self);
    const Chain *chain = self->as<Chain>();
    if (chain && self->type == Type::Null)
        foldSum(self);
}

void Resolver::measure(Expression &self)
{
    int tallest = 0;
    forEachChild(self, [&](const Expression &child) { tallest = qMax(tallest, child.height); });
    const Chain *chain = self.as<Chain>();
    self.height = tallest + limits::heightOfRendering + (chain ? static_cast<int>(chain->links.size()) : 0);
    if (self.height > limits::tallestExpression)
        fail(self.position, u"算式过于复杂，请简化后重试"_s);
}

void Resolver::expressions(std::vector<ExpressionPtr> &list, Scope &scope)
{
    for (ExpressionPtr &each : list)
        expression(each, scope);
}

void Resolver::condition(ExpressionPtr &expression, Scope &scope)
{
    this->expression(expression, scope);
    requireCondition(*expression);
}

/// A number is a condition too: everything but 0 is true.
void Resolver::requireCondition(const Expression &value)
{
    if (!isNumericOrNull(value.type))
        fail(value.position, u"此处应为条件，而%1是%2"_s.arg(describe(value), nameOf(value.type)));
}

QString Resolver::describe(const Expression &expression) const
{
    if (const auto *reference = expression.as<ColumnReference>())
        return u"列 %1 "_s.arg(reference->name);
    return quoted(m_text.sliced(expression.position, expression.end - expression.position));
}

void Resolver::toNumber(ExpressionPtr &value)
{
    if (!coerce(value, Type::Number))
        fail(value->position, u"此处应为数字，而%1不是"_s.arg(describe(*value)));
}

void Resolver::toText(ExpressionPtr &value)
{
    if (!coerce(value, Type::Text))
        fail(value->position, u"%1不能当作文本使用"_s.arg(describe(*value)));
}

/// A literal takes the type of what it is compared with, if it parses; nothing else is converted.
void Resolver::makeComparable(ExpressionPtr &left, ExpressionPtr &right)
{
    const TypeClass one = classOf(left->type);
    const TypeClass other = classOf(right->type);
    if (one == other || one == TypeClass::Any || other == TypeClass::Any)
        return;
    const auto wanted = [](const Expression &by) { return isNumeric(by.type) ? Type::Number : by.type; };
    if (isLiteral(*right) && coerce(right, wanted(*left)))
        return;
    if (isLiteral(*left) && !isLiteral(*right) && coerce(left, wanted(*right)))
        return;
    fail(left->position,
         u"%1是%2，不能与%3比较"_s.arg(describe(*left), nameOf(left->type), describe(*right)));
}

/// Texts are ordered as texts, "12" before "5"; comparing one with a number means something else.
void Resolver::refuseNumberInTextOrder(const Expression &value, const Expression &bound) const
{
    if (value.type == Type::Text && bound.as<NumberLiteral>())
        fail(bound.position, u"%1是文本，不能与数字比较大小，请用 val"_s.arg(describe(value)));
}

Type Resolver::infer(NullLiteral &, Expression &, Scope &)
{
    return Type::Null;
}

Type Resolver::infer(TextLiteral &, Expression &, Scope &)
{
    return Type::Text;
}

Type Resolver::infer(NumberLiteral &node, Expression &, Scope &)
{
    return node.value == static_cast<double>(static_cast<qint64>(qBound(-9e18, node.value, 9e18)))
               ? Type::Integer
               : Type::Number;
}

Type Resolver::infer(DateLiteral &, Expression &, Scope &)
{
    return Type::Date;
}

Type Resolver::infer(ColumnReference &node, Expression &self, Scope &scope)
{
    bool isKnownTable = node.qualifier.isEmpty();
    for (const Scope *each = &scope; each && node.source < 0; each = each->outer) {
        if (each->sources && lookUp(node, *each, self.position))
            isKnownTable = true;
    }
    if (node.source < 0 && !isKnownTable)
        fail(self.position, u"表 %1 不存在"_s.arg(node.qualifier));
    if (node.source < 0)
        fail(self.position, u"列 %1 不存在"_s.arg(node.name));
    return typeOf(node.column->type);
}

Type Resolver::infer(Negation &node, Expression &, Scope &scope)
{
    expression(node.operand, scope);
    toNumber(node.operand);
    return node.operand->type == Type::Number ? Type::Number : Type::Integer;
}

Type Resolver::infer(Chain &node, Expression &, Scope &scope)
{
    expression(node.first, scope);
    for (Chain::Link &link : node.links)
        expression(link.operand, scope);
    const Operator op = node.links.front().op;
    if (op == Operator::Add || op == Operator::Subtract)
        return Type::Null; // foldSum decides the type
    if (!isLogical(op) && op != Operator::Concatenate)
        return productType(node);
    const auto check = [&](ExpressionPtr &operand) {
        if (isLogical(op))
            requireCondition(*operand);
        else if (operand->type == Type::Binary)
            toText(operand);
    };
    check(node.first);
    for (Chain::Link &link : node.links)
        check(link.operand);
    return isLogical(op) ? Type::Condition : Type::Text;
}

Type Resolver::infer(Comparison &node, Expression &, Scope &scope)
{
    expression(node.left, scope);
    expression(node.right, scope);
    if (node.op != Operator::Equal && node.op != Operator::NotEqual) {
        refuseNumberInTextOrder(*node.left, *node.right);
        refuseNumberInTextOrder(*node.right, *node.left);
    }
    makeComparable(node.left, node.right);
    return Type::Condition;
}

Type Resolver::infer(LikeTest &node, Expression &, Scope &scope)
{
    expression(node.value, scope);
    expression(node.pattern, scope);
    toText(node.value);
    toText(node.pattern);
    return Type::Condition;
}

Type Resolver::infer(ListTest &node, Expression &, Scope &scope)
{
    expression(node.value, scope);
    expressions(node.items, scope);
    for (ExpressionPtr &item : node.items) {
        makeComparable(node.value, item);
        makeComparable(node.items.front(), item);
    }
    return Type::Condition;
}

void Resolver::requireOneColumn(const Select &select)
{
    if (select.items.size() != 1)
        fail(select.position, u"此处的子查询只能有一列"_s);
}

Type Resolver::infer(SelectTest &node, Expression &, Scope &scope)
{
    expression(node.value, scope);
    select(*node.select, &scope);
    requireOneColumn(*node.select);
    ExpressionPtr &item = node.select->items.front().expression;
    makeComparable(node.value, item);
    if (item->type == Type::Null)
        item = makeTyped(Conversion{std::move(item)}, *node.value, node.value->type);
    return Type::Condition;
}

Type Resolver::infer(RangeTest &node, Expression &, Scope &scope)
{
    expression(node.value, scope);
    expression(node.low, scope);
    expression(node.high, scope);
    refuseNumberInTextOrder(*node.value, *node.low);
    refuseNumberInTextOrder(*node.value, *node.high);
    makeComparable(node.value, node.low);
    makeComparable(node.value, node.high);
    makeComparable(node.low, node.high);
    return Type::Condition;
}

Type Resolver::infer(NullTest &node, Expression &, Scope &scope)
{
    expression(node.operand, scope);
    return Type::Condition;
}

Type Resolver::infer(Not &node, Expression &, Scope &scope)
{
    condition(node.operand, scope);
    return Type::Condition;
}

Type Resolver::infer(ExistsTest &node, Expression &, Scope &scope)
{
    select(*node.select, &scope);
    return Type::Condition;
}

Type Resolver::infer(SubSelect &node, Expression &, Scope &scope)
{
    select(*node.select, &scope);
    requireOneColumn(*node.select);
    const Type type = node.select->items.front().expression->type;
    return type == Type::Condition ? Type::Integer : type;
}

Type Resolver::infer(Conversion &, Expression &self, Scope &)
{
    return self.type;
}

} // namespace ebtq::db
