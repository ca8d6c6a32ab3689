#include "database/dialect/errors.h"
#include "database/dialect/resolver.h"
#include "database/dialect/tree_walk.h"
#include "database/dialect/types.h"

using namespace Qt::StringLiterals;

namespace ebtq::db {

Type Resolver::infer(Call &node, Expression &self, Scope &scope)
{
    const bool isAggregate = node.function->isAggregate();
    if (isAggregate && !scope.takesAggregates)
        fail(self.position, u"汇总函数 %1 不能用在这里"_s.arg(QLatin1String(node.function->name)));
    const bool before = scope.takesAggregates;
    scope.takesAggregates = before && !isAggregate;
    expressions(node.arguments, scope);
    scope.takesAggregates = before;
    scope.hasAggregate = scope.hasAggregate || isAggregate;
    if (isAggregate)
        checkAggregate(node, self, scope);
    return callType(node, self);
}

/// An aggregate of outer columns alone would belong to the enclosing select.
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
        fail(self.position, u"汇总函数 %1 只用了外层查询的列"_s.arg(QLatin1String(node.function->name)));
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
                 u"%1不能转换为%2"_s.arg(describe(*node.arguments[0]), nameOf(node.function->result)));
        return node.function->result;
    default:
        plainArguments(node);
        if (node.function->form == Function::Form::Aggregate && node.arguments[0]->type == Type::Binary)
            fail(self.position, u"汇总函数 %1 不能用于二进制内容"_s.arg(QLatin1String(node.function->name)));
        if (node.function->result != Type::Null)
            return node.function->result;
        // Aggregated conditions are numbers: the sum of two that are true is -2.
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
            fail(arguments[at]->position, u"%1与其他值的类型不一致"_s.arg(describe(*arguments[at])));
    }
    return type;
}

Type Resolver::nzType(Call &node, const Expression &self)
{
    const Type type = node.arguments[0]->type;
    if (node.arguments.size() == 2)
        return unite(node.arguments, 0, 1);
    if (classOf(type) == TypeClass::Date || classOf(type) == TypeClass::Binary)
        fail(self.position, u"函数 nz 用于日期时要写明第二个参数"_s);
    if (isNumeric(type))
        node.arguments.push_back(makeTyped(NumberLiteral{0}, self, Type::Integer));
    else
        node.arguments.push_back(makeTyped(TextLiteral{u""_s}, self, Type::Text));
    return type == Type::Null ? Type::Text : unite(node.arguments, 0, 1);
}

Type Resolver::switchType(Call &node, const Expression &self)
{
    if (node.arguments.size() % 2 != 0)
        fail(self.position, u"函数 switch 的参数应成对出现"_s);
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
            fail(value->position, u"此处应为%1，而%2不是"_s.arg(nameOf(wanted), describe(*value)));
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
