#include "database/dialect/types.h"

#include "database/values/date_text.h"
#include "database/values/number_text.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

/// A text that is a number as a whole; the leading part of one is not enough to be written into a number
/// column.
std::optional<double> wholeNumber(const QString &text)
{
    const QString trimmed = text.trimmed();
    bool isRead = false;
    const double value = trimmed.toDouble(&isRead);
    const bool isWord = !trimmed.isEmpty() && trimmed.back().isLetter();
    return isRead && !isWord && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

bool coerceText(Expression &expression, const QString &text, Type wanted)
{
    if (wanted == Type::Date) {
        const auto date = parseDate(text);
        if (date)
            expression.node = DateLiteral{storedDate(*date)};
        return date.has_value();
    }
    const auto number = wholeNumber(text);
    if (number)
        expression.node = NumberLiteral{*number};
    return number.has_value();
}

/// Whole numbers are rounded to the nearest, halves to the even one.
bool coerceToInteger(Expression &expression)
{
    NumberLiteral *number = expression.as<NumberLiteral>();
    if (!number || std::abs(number->value) > 9e18)
        return false;
    number->value = std::nearbyint(number->value);
    return true;
}

bool coerceLiteral(Expression &expression, Type wanted)
{
    if (const auto *text = expression.as<TextLiteral>()) {
        const QString value = text->value;
        if (!coerceText(expression, value, wanted))
            return false;
        return wanted != Type::Integer || coerceToInteger(expression);
    }
    if (const auto *date = expression.as<DateLiteral>(); date && wanted == Type::Text) {
        std::string regional;
        appendRegionalDate(date->stored.toStdString(), regional);
        expression.node = TextLiteral{QString::fromStdString(regional)};
        return true;
    }
    if (const auto *number = expression.as<NumberLiteral>(); number && wanted == Type::Text) {
        expression.node = TextLiteral{numberString(number->value)};
        return true;
    }
    return wanted == Type::Integer && coerceToInteger(expression);
}

bool needsNothing(Type from, Type wanted)
{
    return from == wanted || from == Type::Null || (wanted == Type::Number && isNumeric(from)) ||
           (wanted == Type::Integer && from == Type::Condition);
}

bool isConvertible(Type from, Type wanted)
{
    if (from == Type::Binary || wanted == Type::Binary || wanted == Type::Condition)
        return false;
    return wanted == Type::Text || from == Type::Text || (isNumeric(from) && isNumeric(wanted));
}

} // namespace

TypeClass classOf(Type type)
{
    switch (type) {
    case Type::Null:
        return TypeClass::Any;
    case Type::Text:
        return TypeClass::Text;
    case Type::Date:
        return TypeClass::Date;
    case Type::Binary:
        return TypeClass::Binary;
    default:
        return TypeClass::Numeric;
    }
}

Type typeOf(ColumnType type)
{
    switch (type) {
    case ColumnType::Text:
        return Type::Text;
    case ColumnType::Integer:
        return Type::Integer;
    case ColumnType::Number:
        return Type::Number;
    case ColumnType::Date:
        return Type::Date;
    case ColumnType::Binary:
        return Type::Binary;
    }
    return Type::Text;
}

ColumnType columnTypeOf(Type type)
{
    switch (type) {
    case Type::Integer:
    case Type::Condition:
        return ColumnType::Integer;
    case Type::Number:
        return ColumnType::Number;
    case Type::Date:
        return ColumnType::Date;
    case Type::Binary:
        return ColumnType::Binary;
    default:
        return ColumnType::Text;
    }
}

QString nameOf(Type type)
{
    switch (type) {
    case Type::Null:
        return u"空值"_s;
    case Type::Text:
        return u"文本"_s;
    case Type::Date:
        return u"日期"_s;
    case Type::Binary:
        return u"二进制内容"_s;
    case Type::Condition:
        return u"条件"_s;
    default:
        return u"数字"_s;
    }
}

bool isNumeric(Type type)
{
    return classOf(type) == TypeClass::Numeric;
}

bool isNumericOrNull(Type type)
{
    return isNumeric(type) || type == Type::Null;
}

bool isLiteral(const Expression &expression)
{
    return expression.as<TextLiteral>() || expression.as<NumberLiteral>() || expression.as<DateLiteral>();
}

Type commonType(Type one, Type other)
{
    if (one == other || other == Type::Null)
        return one;
    if (one == Type::Null)
        return other;
    if (isNumeric(one) && isNumeric(other))
        return one == Type::Number || other == Type::Number ? Type::Number : Type::Integer;
    return Type::Text;
}

bool coerce(ExpressionPtr &expression, Type wanted)
{
    const Type from = expression->type;
    if (needsNothing(from, wanted))
        return true;
    if (!isConvertible(from, wanted))
        return false;
    if (isLiteral(*expression)) {
        if (!coerceLiteral(*expression, wanted))
            return false;
        expression->type = wanted;
        return true;
    }
    const Expression &inner = *expression;
    expression = makeTyped(Conversion{std::move(expression)}, inner, wanted);
    return true;
}

} // namespace ebtq::db
