#include "database/sqlite/function_call.h"
#include "database/values/number_text.h"

#include <array>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

/// Halves are rounded to even, as everywhere in the dialect.
double rounded(double number)
{
    return std::nearbyint(number);
}

void text(FunctionCall &call)
{
    if (call.type(0) == SQLITE_TEXT)
        call.pass(0);
    else
        call.give(numberText(call.number(0)));
}

/// Null is treated as a text without a number.
void val(FunctionCall &call)
{
    if (call.type(0) == SQLITE_TEXT)
        call.giveNumber(leadingNumber(call.text(0)));
    else if (call.type(0) == SQLITE_NULL)
        call.giveInteger(0);
    else
        call.pass(0);
}

/// The whole text must be a number.
std::optional<double> converted(FunctionCall &call)
{
    if (call.type(0) != SQLITE_TEXT)
        return call.number(0);
    const QString text = call.string(0).trimmed();
    bool isRead = false;
    const double number = text.toDouble(&isRead);
    if (isRead && !text.back().isLetter() && std::isfinite(number))
        return number;
    call.fail(u"“%1”不是数字，不能转换"_s.arg(text.left(24)));
    return std::nullopt;
}

void cdbl(FunctionCall &call)
{
    if (const auto number = converted(call))
        call.giveNumber(*number);
}

void clng(FunctionCall &call)
{
    const auto number = converted(call);
    if (number && std::abs(*number) > 9e18)
        call.fail(u"数字太大，不能转换为整数"_s);
    else if (number)
        call.giveNumber(rounded(*number));
}

void abs(FunctionCall &call)
{
    call.giveNumber(std::abs(call.number(0)));
}

void floor(FunctionCall &call)
{
    call.giveNumber(std::floor(call.number(0)));
}

void fix(FunctionCall &call)
{
    call.giveNumber(std::trunc(call.number(0)));
}

void round(FunctionCall &call)
{
    const qint64 digits = call.count() > 1 ? call.integer(1) : 0;
    if (digits < 0 || digits > 15)
        return call.fail(u"round 的小数位数应在 0 到 15 之间"_s);
    const double scale = std::pow(10.0, static_cast<double>(digits));
    call.giveNumber(rounded(call.number(0) * scale) / scale);
}

void sgn(FunctionCall &call)
{
    const double number = call.number(0);
    call.giveInteger(number > 0 ? 1 : number < 0 ? -1 : 0);
}

void sqr(FunctionCall &call)
{
    if (call.number(0) < 0)
        return call.fail(u"sqr 的参数不能是负数"_s);
    call.giveNumber(std::sqrt(call.number(0)));
}

void power(FunctionCall &call)
{
    call.giveNumber(std::pow(call.number(0), call.number(1)));
}

/// Both sides are rounded first; by 0 the result is Null.
void divideWhole(FunctionCall &call, bool givesRest)
{
    const double dividend = rounded(call.number(0));
    const double divisor = rounded(call.number(1));
    if (divisor == 0)
        call.giveNull();
    else
        call.giveNumber(givesRest ? std::fmod(dividend, divisor) : std::trunc(dividend / divisor));
}

void intdiv(FunctionCall &call)
{
    divideWhole(call, false);
}

void mod(FunctionCall &call)
{
    divideWhole(call, true);
}

/// A positive number has a blank in place of the sign.
void str(FunctionCall &call)
{
    const double number = call.number(0);
    call.give((number < 0 ? "" : " ") + numberText(number));
}

} // namespace

std::span<const FunctionEntry> numberFunctions()
{
    static constexpr std::array entries{
        FunctionEntry{"text", 1, text},     FunctionEntry{"val", 1, val, true},
        FunctionEntry{"cdbl", 1, cdbl},     FunctionEntry{"clng", 1, clng},
        FunctionEntry{"abs", 1, abs},       FunctionEntry{"int", 1, floor},
        FunctionEntry{"fix", 1, fix},       FunctionEntry{"round", 1, round},
        FunctionEntry{"round", 2, round},   FunctionEntry{"sgn", 1, sgn},
        FunctionEntry{"sqr", 1, sqr},       FunctionEntry{"power", 2, power},
        FunctionEntry{"intdiv", 2, intdiv}, FunctionEntry{"mod", 2, mod},
        FunctionEntry{"str", 1, str},
    };
    return entries;
}

} // namespace ebtq::db
