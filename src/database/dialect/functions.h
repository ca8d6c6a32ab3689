#pragma once

#include <QStringView>

namespace ebtq::db {

/// What an expression yields. Condition is what a comparison gives; as a value it counts -1 for true and 0.
enum class Type : quint8 { Null, Text, Integer, Number, Date, Binary, Condition };

/// A function of the dialect. Those without a form of their own are rendered as a call of the engine's
/// function of the same name, which the driver registers or the installer creates.
struct Function
{
    enum class Form : quint8 { Plain, Iif, Instr, Switch, Choose, Nz, IsNull, Conversion, Count, Aggregate };

    const char *name;
    Form form;
    quint8 fewest;
    quint8 most;
    /// One letter an argument, the last for all that follow: t text, n number, i integer, d date, c
    /// condition, v a text or a number as it comes, * anything.
    const char *arguments;
    Type result; ///< Null: that of the arguments
    /// What the engine calls it where the name itself means something else there.
    const char *engineName = nullptr;

    [[nodiscard]] bool isAggregate() const { return form == Form::Count || form == Form::Aggregate; }
};

/// The function of that name, compared without regard to case; nullptr when there is none.
[[nodiscard]] const Function *functionNamed(QStringView name);

/// What `+` and `-` become with a date on the left; not to be written in a statement.
extern const Function addDays;
extern const Function daysBetween;

} // namespace ebtq::db
