#pragma once

#include <QString>

#include <sqlite3.h>

#include <span>
#include <string>
#include <string_view>

namespace ebtq::db {

/// One call of a function of the dialect by the engine: its arguments and its result.
class FunctionCall
{
public:
    FunctionCall(sqlite3_context *context, int count, sqlite3_value **values)
        : m_context(context)
        , m_count(count)
        , m_values(values)
    {}

    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] int type(int at) const { return sqlite3_value_type(m_values[at]); }
    [[nodiscard]] bool hasNull() const;
    /// Valid until the argument is read as another type.
    [[nodiscard]] std::string_view text(int at) const;
    [[nodiscard]] QString string(int at) const;
    [[nodiscard]] double number(int at) const { return sqlite3_value_double(m_values[at]); }
    [[nodiscard]] qint64 integer(int at) const { return sqlite3_value_int64(m_values[at]); }
    /// The argument itself as the result.
    void pass(int at) { sqlite3_result_value(m_context, m_values[at]); }

    void giveNull() { sqlite3_result_null(m_context); }
    void give(std::string_view text);
    void give(const QString &text);
    void giveInteger(qint64 number) { sqlite3_result_int64(m_context, number); }
    /// Integral values become integers, which are joined as texts without a decimal point.
    void giveNumber(double number);
    void fail(const QString &message);

    /// What was cached for this argument of this statement; only for a constant argument it survives the row.
    template<class T> [[nodiscard]] T *kept(int at) const
    {
        return static_cast<T *>(sqlite3_get_auxdata(m_context, at));
    }
    template<class T> void keep(int at, T *owned)
    {
        sqlite3_set_auxdata(m_context, at, owned, [](void *each) { delete static_cast<T *>(each); });
    }

private:
    sqlite3_context *m_context;
    int m_count;
    sqlite3_value **m_values;
};

inline constexpr int anyCount = -1;

struct FunctionEntry
{
    const char *name; ///< without the prefix
    int count;
    void (*run)(FunctionCall &call);
    bool takesNull = false; ///< otherwise Null among the arguments gives Null without a call
    bool isDeterministic = true;
};

[[nodiscard]] std::span<const FunctionEntry> textFunctions();
[[nodiscard]] std::span<const FunctionEntry> numberFunctions();
[[nodiscard]] std::span<const FunctionEntry> dateFunctions();

} // namespace ebtq::db
