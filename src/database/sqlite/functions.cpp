#include "database/sqlite/functions.h"

#include "database/connection.h"
#include "database/sqlite/function_call.h"
#include "database/utf8.h"
#include "database/values/row_block.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

int sign(char32_t left, char32_t right)
{
    return left < right ? -1 : left > right ? 1 : 0;
}

/// Compares texts by their case-folded characters. The common prefix is skipped bytewise; characters are
/// decoded from the first different byte on.
int compareFolded(std::string_view left, std::string_view right)
{
    const size_t shorter = std::min(left.size(), right.size());
    size_t same = static_cast<size_t>(
        std::mismatch(left.begin(), left.begin() + static_cast<std::ptrdiff_t>(shorter), right.begin())
            .first -
        left.begin());
    while (same > 0 && same < shorter && (static_cast<unsigned char>(left[same]) & 0xC0U) == 0x80)
        --same;
    size_t leftAt = same;
    size_t rightAt = same;
    while (leftAt < left.size() && rightAt < right.size()) {
        const char32_t one = foldedCharacter(takeCharacter(left, leftAt));
        const char32_t other = foldedCharacter(takeCharacter(right, rightAt));
        if (one != other)
            return sign(one, other);
    }
    const bool leftEnds = leftAt >= left.size();
    const bool rightEnds = rightAt >= right.size();
    return leftEnds == rightEnds ? 0 : leftEnds ? -1 : 1;
}

int collate(void *, int leftSize, const void *left, int rightSize, const void *right)
{
    return compareFolded({static_cast<const char *>(left), static_cast<size_t>(leftSize)},
                         {static_cast<const char *>(right), static_cast<size_t>(rightSize)});
}

/// No exception may pass through the engine.
void run(sqlite3_context *context, int count, sqlite3_value **values)
{
    const auto &entry = *static_cast<const FunctionEntry *>(sqlite3_user_data(context));
    FunctionCall call(context, count, values);
    if (!entry.takesNull && call.hasNull())
        return call.giveNull();
    try {
        entry.run(call);
    } catch (const std::exception &) {
        sqlite3_result_error_nomem(context);
    }
}

void check(sqlite3 *database, int result)
{
    if (result != SQLITE_OK)
        throw DatabaseError(u"数据库初始化失败：%1"_s.arg(QString::fromUtf8(sqlite3_errmsg(database))));
}

void registerAll(sqlite3 *database, std::span<const FunctionEntry> entries)
{
    for (const FunctionEntry &entry : entries) {
        const QByteArray name = QByteArrayLiteral("ebtq_") + entry.name;
        const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (entry.isDeterministic ? SQLITE_DETERMINISTIC : 0);
        check(database, sqlite3_create_function_v2(database, name.constData(), entry.count, flags,
                                                   const_cast<FunctionEntry *>(&entry), run, nullptr, nullptr,
                                                   nullptr));
    }
}

} // namespace

bool FunctionCall::hasNull() const
{
    return std::any_of(m_values, m_values + m_count,
                       [](sqlite3_value *each) { return sqlite3_value_type(each) == SQLITE_NULL; });
}

std::string_view FunctionCall::text(int at) const
{
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_value_text(m_values[at]));
    return bytes ? std::string_view(bytes, static_cast<size_t>(sqlite3_value_bytes(m_values[at])))
                 : std::string_view();
}

QString FunctionCall::string(int at) const
{
    return cellText(text(at));
}

void FunctionCall::give(std::string_view text)
{
    sqlite3_result_text64(m_context, text.data() ? text.data() : "", text.size(), SQLITE_TRANSIENT,
                          SQLITE_UTF8);
}

void FunctionCall::give(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    give(std::string_view(bytes.constData(), static_cast<size_t>(bytes.size())));
}

void FunctionCall::giveNumber(double number)
{
    constexpr double exactUpTo = 9007199254740992.0;
    if (!std::isfinite(number))
        fail(u"计算结果不是有效的数字"_s);
    else if (std::abs(number) < exactUpTo && number == std::trunc(number))
        giveInteger(static_cast<qint64>(number));
    else
        sqlite3_result_double(m_context, number);
}

void FunctionCall::fail(const QString &message)
{
    const QByteArray bytes = message.toUtf8();
    sqlite3_result_error(m_context, bytes.constData(), static_cast<int>(bytes.size()));
}

void registerFunctions(sqlite3 *database)
{
    check(database,
          sqlite3_create_collation_v2(database, "ebtq_nocase", SQLITE_UTF8, nullptr, collate, nullptr));
    registerAll(database, textFunctions());
    registerAll(database, numberFunctions());
    registerAll(database, dateFunctions());
}

} // namespace ebtq::db
