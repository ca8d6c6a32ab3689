#include "database/sqlite/function_call.h"
#include "database/sqlite/like_pattern.h"
#include "database/utf8.h"
#include "database/values/number_text.h"

#include <array>
#include <charconv>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

/// The longest result of space and string: far more than needed, and too little to exhaust the memory.
constexpr qint64 longestRepeat = 1000000;

/// Where the character with that number begins, or the end of a shorter text.
size_t offsetOf(std::string_view text, qint64 character)
{
    size_t at = 0;
    for (qint64 passed = 0; passed < character && at < text.size(); ++passed)
        takeCharacter(text, at);
    return at;
}

/// From 10^15 on an integer is written as any other number of its size, however the engine stores it.
void appendInteger(qint64 number, std::string &out)
{
    constexpr qint64 smallestWithExponent = 1000000000000000;
    if (number >= smallestWithExponent || number <= -smallestWithExponent) {
        out += numberText(static_cast<double>(number));
        return;
    }
    char digits[24];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

qint64 lengthOf(std::string_view text)
{
    qint64 length = 0;
    for (size_t at = 0; at < text.size(); ++length)
        takeCharacter(text, at);
    return length;
}

/// The joining operator for all its operands at once. A list calls it for each row, so its buffer is
/// reused, unless a single huge text has grown it.
void join(FunctionCall &call)
{
    constexpr size_t mostKept = 1 << 16;
    thread_local std::string result;
    result.clear();
    for (int at = 0; at < call.count(); ++at) {
        if (call.type(at) == SQLITE_INTEGER)
            appendInteger(call.integer(at), result);
        else if (call.type(at) == SQLITE_FLOAT)
            result += numberText(call.number(at));
        else
            result += call.text(at);
    }
    call.give(std::string_view(result));
    if (result.capacity() > mostKept)
        result = std::string();
}

void like(FunctionCall &call)
{
    auto *pattern = call.kept<LikePattern>(1);
    const std::string_view text = call.text(0);
    if (pattern)
        return call.giveInteger(pattern->matches(text) ? 1 : 0);
    pattern = new LikePattern(call.text(1));
    call.giveInteger(pattern->matches(text) ? 1 : 0);
    call.keep(1, pattern);
}

/// Positions count from 1; the search begins at the given one. Nothing is found in an empty text, and an
/// empty text is found where the search begins.
void instr(FunctionCall &call)
{
    const qint64 start = call.integer(0);
    if (start < 1)
        return call.fail(u"instr 的起始位置应从 1 开始"_s);
    const std::u32string text = folded(call.text(1));
    if (static_cast<size_t>(start) > text.size())
        return call.giveInteger(0);
    const size_t found = text.find(folded(call.text(2)), static_cast<size_t>(start) - 1);
    call.giveInteger(found == std::u32string::npos ? 0 : static_cast<qint64>(found) + 1);
}

void len(FunctionCall &call)
{
    call.giveInteger(lengthOf(call.text(0)));
}

void left(FunctionCall &call)
{
    const qint64 length = call.integer(1);
    if (length < 0)
        return call.fail(u"left 的长度不能是负数"_s);
    const std::string_view text = call.text(0);
    call.give(text.substr(0, offsetOf(text, length)));
}

void right(FunctionCall &call)
{
    const qint64 length = call.integer(1);
    if (length < 0)
        return call.fail(u"right 的长度不能是负数"_s);
    const std::string_view text = call.text(0);
    call.give(text.substr(offsetOf(text, lengthOf(text) - length)));
}

void mid(FunctionCall &call)
{
    const qint64 start = call.integer(1);
    const qint64 length = call.count() > 2 ? call.integer(2) : 0;
    if (start < 1 || length < 0)
        return call.fail(u"mid 的起始位置应从 1 开始，长度不能是负数"_s);
    const std::string_view text = call.text(0);
    const std::string_view rest = text.substr(offsetOf(text, start - 1));
    call.give(call.count() > 2 ? rest.substr(0, offsetOf(rest, length)) : rest);
}

/// Blanks only: line ends and tabs belong to the text.
void trim(FunctionCall &call, bool atBegin, bool atEnd)
{
    std::string_view text = call.text(0);
    while (atBegin && text.starts_with(' '))
        text.remove_prefix(1);
    while (atEnd && text.ends_with(' '))
        text.remove_suffix(1);
    call.give(text);
}

void trimBoth(FunctionCall &call)
{
    trim(call, true, true);
}

void trimLeft(FunctionCall &call)
{
    trim(call, true, false);
}

void trimRight(FunctionCall &call)
{
    trim(call, false, true);
}

template<class Change> void changeCase(FunctionCall &call, Change change)
{
    const std::string_view text = call.text(0);
    std::u32string changed;
    for (size_t at = 0; at < text.size();)
        changed += change(takeCharacter(text, at));
    call.give(QString::fromStdU32String(changed));
}

/// One character for one, as in lcase: "ß" stays.
void ucase(FunctionCall &call)
{
    changeCase(call, [](char32_t c) { return c <= 0x10FFFF ? QChar::toUpper(c) : c; });
}

void lcase(FunctionCall &call)
{
    changeCase(call, foldedCharacter);
}

void replace(FunctionCall &call)
{
    const QString sought = call.string(1);
    QString text = call.string(0);
    call.give(sought.isEmpty() ? text : text.replace(sought, call.string(2)));
}

void repeat(FunctionCall &call, std::string_view character)
{
    const qint64 count = call.integer(0);
    if (count < 0 || count > longestRepeat)
        return call.fail(u"重复的次数应在 0 到 %1 之间"_s.arg(longestRepeat));
    std::string result;
    for (qint64 each = 0; each < count; ++each)
        result += character;
    call.give(std::string_view(result));
}

void space(FunctionCall &call)
{
    repeat(call, " ");
}

void string(FunctionCall &call)
{
    const std::string_view text = call.text(1);
    repeat(call, text.substr(0, offsetOf(text, 1)));
}

void asc(FunctionCall &call)
{
    const std::string_view text = call.text(0);
    size_t at = 0;
    if (text.empty())
        call.fail(u"asc 的参数不能是空文本"_s);
    else
        call.giveInteger(takeCharacter(text, at));
}

void chr(FunctionCall &call)
{
    const qint64 code = call.integer(0);
    if (code < 1 || code > 0x10FFFF || QChar::isSurrogate(static_cast<char32_t>(code)))
        return call.fail(u"chr 的参数不是字符的代码"_s);
    const auto character = static_cast<char32_t>(code);
    call.give(QString::fromUcs4(&character, 1));
}

} // namespace

std::span<const FunctionEntry> textFunctions()
{
    static constexpr std::array entries{
        FunctionEntry{"join", anyCount, join, true},
        FunctionEntry{"like", 2, like},
        FunctionEntry{"instr", 3, instr},
        FunctionEntry{"len", 1, len},
        FunctionEntry{"left", 2, left},
        FunctionEntry{"right", 2, right},
        FunctionEntry{"mid", 2, mid},
        FunctionEntry{"mid", 3, mid},
        FunctionEntry{"trim", 1, trimBoth},
        FunctionEntry{"ltrim", 1, trimLeft},
        FunctionEntry{"rtrim", 1, trimRight},
        FunctionEntry{"ucase", 1, ucase},
        FunctionEntry{"lcase", 1, lcase},
        FunctionEntry{"replacetext", 3, replace},
        FunctionEntry{"space", 1, space},
        FunctionEntry{"string", 2, string},
        FunctionEntry{"asc", 1, asc},
        FunctionEntry{"chr", 1, chr},
    };
    return entries;
}

} // namespace ebtq::db
