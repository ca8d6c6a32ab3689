#include "database/dialect/functions.h"

#include "database/dialect/limits.h"

#include <QLatin1String>

#include <algorithm>
#include <array>

namespace ebtq::db {

namespace {

using Form = Function::Form;
constexpr quint8 many = limits::mostArguments;

/// In the order of their names, for the search.
constexpr std::array functions{
    Function{"abs", Form::Plain, 1, 1, "n", Type::Null},
    Function{"asc", Form::Plain, 1, 1, "t", Type::Integer},
    Function{"avg", Form::Aggregate, 1, 1, "n", Type::Number},
    Function{"cdate", Form::Conversion, 1, 1, "*", Type::Date},
    Function{"cdbl", Form::Conversion, 1, 1, "*", Type::Number},
    Function{"choose", Form::Choose, 2, many, "i*", Type::Null},
    Function{"chr", Form::Plain, 1, 1, "i", Type::Text},
    Function{"cint", Form::Conversion, 1, 1, "*", Type::Integer},
    Function{"clng", Form::Conversion, 1, 1, "*", Type::Integer},
    Function{"count", Form::Count, 1, 1, "*", Type::Integer},
    Function{"cstr", Form::Conversion, 1, 1, "*", Type::Text},
    Function{"date", Form::Plain, 0, 0, "", Type::Date},
    Function{"dateadd", Form::Plain, 3, 3, "tnd", Type::Date},
    Function{"datediff", Form::Plain, 3, 3, "tdd", Type::Integer},
    Function{"datevalue", Form::Plain, 1, 1, "d", Type::Date},
    Function{"day", Form::Plain, 1, 1, "d", Type::Integer},
    Function{"fix", Form::Plain, 1, 1, "n", Type::Number},
    Function{"hour", Form::Plain, 1, 1, "d", Type::Integer},
    Function{"iif", Form::Iif, 3, 3, "c*", Type::Null},
    Function{"instr", Form::Instr, 2, 3, "", Type::Integer},
    Function{"int", Form::Plain, 1, 1, "n", Type::Number},
    Function{"isnull", Form::IsNull, 1, 1, "*", Type::Condition},
    Function{"lcase", Form::Plain, 1, 1, "t", Type::Text},
    Function{"left", Form::Plain, 2, 2, "ti", Type::Text},
    Function{"len", Form::Plain, 1, 1, "t", Type::Integer},
    Function{"ltrim", Form::Plain, 1, 1, "t", Type::Text},
    Function{"max", Form::Aggregate, 1, 1, "*", Type::Null},
    Function{"mid", Form::Plain, 2, 3, "ti", Type::Text},
    Function{"min", Form::Aggregate, 1, 1, "*", Type::Null},
    Function{"minute", Form::Plain, 1, 1, "d", Type::Integer},
    Function{"month", Form::Plain, 1, 1, "d", Type::Integer},
    Function{"now", Form::Plain, 0, 0, "", Type::Date},
    Function{"nz", Form::Nz, 1, 2, "*", Type::Null},
    // The extension for texts without case has a function of that name, which takes no account of case.
    Function{"replace", Form::Plain, 3, 3, "t", Type::Text, "replacetext"},
    Function{"right", Form::Plain, 2, 2, "ti", Type::Text},
    Function{"round", Form::Plain, 1, 2, "ni", Type::Number},
    Function{"rtrim", Form::Plain, 1, 1, "t", Type::Text},
    Function{"second", Form::Plain, 1, 1, "d", Type::Integer},
    Function{"sgn", Form::Plain, 1, 1, "n", Type::Integer},
    Function{"space", Form::Plain, 1, 1, "i", Type::Text},
    Function{"sqr", Form::Plain, 1, 1, "n", Type::Number},
    Function{"str", Form::Plain, 1, 1, "n", Type::Text},
    Function{"string", Form::Plain, 2, 2, "it", Type::Text},
    Function{"sum", Form::Aggregate, 1, 1, "n", Type::Null},
    Function{"switch", Form::Switch, 2, many, "", Type::Null},
    Function{"trim", Form::Plain, 1, 1, "t", Type::Text},
    Function{"ucase", Form::Plain, 1, 1, "t", Type::Text},
    Function{"val", Form::Plain, 1, 1, "v", Type::Number},
    Function{"year", Form::Plain, 1, 1, "d", Type::Integer},
};

} // namespace

const Function *functionNamed(QStringView name)
{
    const auto isBefore = [](const Function &function, QStringView wanted) {
        return QLatin1String(function.name).compare(wanted, Qt::CaseInsensitive) < 0;
    };
    const auto found = std::lower_bound(functions.begin(), functions.end(), name, isBefore);
    const bool same =
        found != functions.end() && QLatin1String(found->name).compare(name, Qt::CaseInsensitive) == 0;
    return same ? &*found : nullptr;
}

const Function addDays{"adddays", Form::Plain, 2, 2, "dn", Type::Date};
const Function daysBetween{"daysbetween", Form::Plain, 2, 2, "dd", Type::Number};

} // namespace ebtq::db
