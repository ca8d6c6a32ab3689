#include "database/dialect/errors.h"
#include "database/dialect/resolver.h"
#include "database/dialect/tree_walk.h"
#include "database/dialect/types.h"

#include <algorithm>

namespace ebtq::db {

namespace {

/// The engines refuse a thousand, and what rendering puts around an operand counts as well.
constexpr int tallestExpression = 900;
constexpr int roomForRendering = 3;

template<class Node> ExpressionPtr makeTyped(Node node, const Expression &like, Type type)
{
    return std::make_unique<Expression>(
        Expression{std::move(node), like.position, like.end, type, like.height + 1});
}

bool isOrNull(Type type, bool (*test)(Type))
{
    return type == Type::Null || test(type);
}

bool isText(Type type)
{
    return type == Type::Text;
}

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
    self.height = tallest + roomForRendering + (chain ? static_cast<int>(chain->links.size()) : 0);
    if (self.height > tallestExpression)
        fail(self.position, u"算式过于复杂，请简化后重试"_qs);
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
    if (!isOrNull(value.type, isNumeric))
        fail(value.position, u"此处应为条件，而%1是%2"_qs.arg(describe(value), nameOf(value.type)));
}

QString Resolver::describe(const Expression &expression) const
{
    if (const auto *reference = expression.as<ColumnReference>())
        return u"列 %1 "_qs.arg(reference->name);
    return quoted(m_text.sliced(expression.position, expression.end - expression.position));
}

void Resolver::toNumber(ExpressionPtr &value)
{
    if (!coerce(value, Type::Number))
        fail(value->position, u"此处应为数字，而%1不是"_qs.arg(describe(*value)));
}

void Resolver::toText(ExpressionPtr &value)
{
    if (!coerce(value, Type::Text))
        fail(value->position, u"%1不能当作文本使用"_qs.arg(describe(*value)));
}

/// A literal takes the type of what it stands beside, when it reads as such; nothing else is guessed.
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
         u"%1是%2，不能与%3比较"_qs.arg(describe(*left), nameOf(left->type), describe(*right)));
}

/// Texts are ordered as texts, "12" before "5": whoever writes a number beside one means something else.
void Resolver::refuseNumberInTextOrder(const Expression &value, const Expression &bound) const
{
    if (value.type == Type::Text && bound.as<NumberLiteral>())
        fail(bound.position, u"%1是文本，不能与数字比较大小，请用 val"_qs.arg(describe(value)));
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
        fail(self.position, u"表 %1 不存在"_qs.arg(node.qualifier));
    if (node.source < 0)
        fail(self.position, u"列 %1 不存在"_qs.arg(node.name));
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
        return Type::Null; // the fold gives the type
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

/// Numbers alone stay one chain. With texts and dates among them each + and - means what its two sides make
/// of it.
void Resolver::foldSum(ExpressionPtr &self)
{
    Chain &chain = *self->as<Chain>();
    const auto isPlain = [](const ExpressionPtr &operand) { return isOrNull(operand->type, isNumeric); };
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
    const bool areTexts = isOrNull(left->type, isText) && isOrNull(right->type, isText);
    if (op != Operator::Add || !areTexts)
        return numericSum(op, std::move(left), std::move(right));
    const Expression at{NullLiteral{}, left->position, right->end};
    std::vector<Chain::Link> links;
    links.push_back({Operator::Append, std::move(right)});
    return makeTyped(Chain{std::move(left), std::move(links)}, at, Type::Text);
}

/// A date and a number of days give a date, two dates the days between them.
ExpressionPtr Resolver::dateSum(Operator op, ExpressionPtr left, ExpressionPtr right)
{
    const Expression at{NullLiteral{}, left->position, right->end};
    const bool areDates = left->type == right->type;
    if (op == Operator::Add && right->type == Type::Date)
        std::swap(left, right);
    if (left->type != Type::Date || (areDates && op == Operator::Add))
        fail(at.position, u"日期不能这样计算"_qs);
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
    const Expression at{NullLiteral{}, left->position, right->end};
    std::vector<Chain::Link> links;
    links.push_back({op, std::move(right)});
    return makeTyped(Chain{std::move(left), std::move(links)}, at, isWhole ? Type::Integer : Type::Number);
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
        fail(select.position, u"此处的子查询只能有一列"_qs);
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

Type Resolver::infer(Call &node, Expression &self, Scope &scope)
{
    const bool isAggregate = node.function->isAggregate();
    if (isAggregate && !scope.takesAggregates)
        fail(self.position, u"汇总函数 %1 不能用在这里"_qs.arg(QLatin1String(node.function->name)));
    const bool before = scope.takesAggregates;
    scope.takesAggregates = before && !isAggregate;
    expressions(node.arguments, scope);
    scope.takesAggregates = before;
    scope.hasAggregate = scope.hasAggregate || isAggregate;
    if (isAggregate)
        checkAggregate(node, self, scope);
    return callType(node, self);
}

/// An aggregate of outer columns alone would belong to the select around.
void Resolver::checkAggregate(const Call &node, const Expression &self, const Scope &scope) const
{
    bool hasColumn = false;
    bool hasOwn = false;
    const auto look = [&](const Expression &each, const auto &again) -> void {
        if (const auto *reference = each.as<ColumnReference>()) {
            hasColumn = true;
            for (size_t at = scope.first; at < scope.end; ++at)
                hasOwn = hasOwn || scope.sources[at].number == reference->source;
        }
        const auto inside = [&](const Expression &child) { again(child, again); };
        forEachChild(each, inside);
        if (const Select *inner = selectIn(each))
            forEachExpression(*inner, inside);
    };
    for (const ExpressionPtr &each : node.arguments)
        look(*each, look);
    if (hasColumn && !hasOwn)
        fail(self.position, u"汇总函数 %1 只用了外层查询的列"_qs.arg(QLatin1String(node.function->name)));
}

Type Resolver::callType(Call &node, const Expression &self)
{
    switch (node.function->form) {
    case Function::Form::Iif:
        requireCondition(*node.arguments[0]);
        return unite(node.arguments, 1, 1);
    case Function::Form::Choose:
        argument(node.arguments[0], 'i');
        return unite(node.arguments, 1, 1);
    case Function::Form::Switch:
        return switchType(node, self);
    case Function::Form::Nz:
        return nzType(node, self);
    case Function::Form::Instr:
        return instrType(node);
    case Function::Form::Conversion:
        if (!coerce(node.arguments[0], node.function->result))
            fail(self.position,
                 u"%1不能转换为%2"_qs.arg(describe(*node.arguments[0]), nameOf(node.function->result)));
        return node.function->result;
    default:
        plainArguments(node);
        if (node.function->form == Function::Form::Aggregate && node.arguments[0]->type == Type::Binary)
            fail(self.position, u"汇总函数 %1 不能用于二进制内容"_qs.arg(QLatin1String(node.function->name)));
        if (node.function->result != Type::Null)
            return node.function->result;
        // Of conditions what it gives is a number: the sum of two that are true is -2.
        return node.arguments[0]->type == Type::Condition ? Type::Integer : node.arguments[0]->type;
    }
}

/// Every `step`th argument from `first` on becomes one type.
Type Resolver::unite(std::vector<ExpressionPtr> &arguments, size_t first, size_t step)
{
    Type type = Type::Null;
    for (size_t at = first; at < arguments.size(); at += step)
        type = commonType(type, arguments[at]->type);
    if (type == Type::Condition)
        type = Type::Integer;
    for (size_t at = first; at < arguments.size(); at += step) {
        if (!coerce(arguments[at], type))
            fail(arguments[at]->position, u"%1与其他值的类型不一致"_qs.arg(describe(*arguments[at])));
    }
    return type;
}

Type Resolver::nzType(Call &node, const Expression &self)
{
    const Type type = node.arguments[0]->type;
    if (node.arguments.size() == 2)
        return unite(node.arguments, 0, 1);
    if (classOf(type) == TypeClass::Date || classOf(type) == TypeClass::Binary)
        fail(self.position, u"函数 nz 用于日期时要写明第二个参数"_qs);
    if (isNumeric(type))
        node.arguments.push_back(makeTyped(NumberLiteral{0}, self, Type::Integer));
    else
        node.arguments.push_back(makeTyped(TextLiteral{u""_qs}, self, Type::Text));
    return type == Type::Null ? Type::Text : unite(node.arguments, 0, 1);
}

Type Resolver::switchType(Call &node, const Expression &self)
{
    if (node.arguments.size() % 2 != 0)
        fail(self.position, u"函数 switch 的参数应成对出现"_qs);
    for (size_t at = 0; at < node.arguments.size(); at += 2)
        requireCondition(*node.arguments[at]);
    return unite(node.arguments, 1, 2);
}

Type Resolver::instrType(Call &node)
{
    const bool hasStart = node.arguments.size() == 3;
    if (hasStart)
        argument(node.arguments[0], 'i');
    toText(node.arguments[hasStart ? 1 : 0]);
    toText(node.arguments[hasStart ? 2 : 1]);
    return Type::Integer;
}

void Resolver::plainArguments(Call &node)
{
    const char *letter = node.function->arguments;
    for (ExpressionPtr &each : node.arguments) {
        argument(each, *letter);
        if (letter[1] != '\0')
            ++letter;
    }
}

void Resolver::argument(ExpressionPtr &value, char letter)
{
    const auto require = [&](Type wanted) {
        if (!coerce(value, wanted))
            fail(value->position, u"此处应为%1，而%2不是"_qs.arg(nameOf(wanted), describe(*value)));
    };
    switch (letter) {
    case 't':
        return require(Type::Text);
    case 'n':
        return require(Type::Number);
    case 'i':
        return require(Type::Integer);
    case 'd':
        return require(Type::Date);
    case 'v':
        return isNumeric(value->type) ? void() : require(Type::Text);
    default:
        return;
    }
}

} // namespace ebtq::db
