#include "database/values/number_text.h"

#include <QLocale>
#include <algorithm>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace ebtq {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

int digitValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : 99;
}

/// The text without its blanks, one character at a time; '\0' at the end.
class Reader
{
public:
    explicit Reader(std::string_view text)
        : m_text(text)
    {
        skipBlanks();
    }
    [[nodiscard]] char peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
    char take()
    {
        const char c = peek();
        ++m_at;
        skipBlanks();
        return c;
    }
    [[nodiscard]] bool is(char upper) const { return peek() == upper || peek() == upper + ('a' - 'A'); }

private:
    void skipBlanks()
    {
        while (m_at < m_text.size() && isBlank(m_text[m_at]))
            ++m_at;
    }
    std::string_view m_text;
    size_t m_at = 0;
};

double radixNumber(Reader reader, int radix)
{
    double result = 0;
    while (digitValue(reader.peek()) < radix)
        result = result * radix + digitValue(reader.take());
    return std::min(result, std::numeric_limits<double>::max());
}

void takeDigits(Reader &reader, std::string &into)
{
    while (reader.peek() >= '0' && reader.peek() <= '9')
        into += reader.take();
}

/// An exponent counts only with digits behind it: "5e" is 5.
void takeExponent(Reader reader, std::string &into)
{
    if (!reader.is('E') && !reader.is('D'))
        return;
    reader.take();
    std::string exponent = "e";
    if (reader.peek() == '-' || reader.peek() == '+')
        exponent += reader.take();
    const size_t before = exponent.size();
    takeDigits(reader, exponent);
    if (exponent.size() > before)
        into += exponent;
}

double fromDigits(const std::string &digits)
{
    double result = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), result);
    if (read.ec == std::errc::result_out_of_range) // tells not whether it is too large or too small
        result = QLocale::c().toDouble(QString::fromStdString(digits));
    return std::min(result, std::numeric_limits<double>::max());
}

bool isDigit(std::string_view text, size_t at)
{
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

/// The usual case, read where it stands: digits up to the end or to a letter of another script, such as the
/// unit behind a price. Nothing for what needs a closer look.
std::optional<double> plainNumber(std::string_view text)
{
    if (!isDigit(text, text.starts_with('-') ? 1 : 0))
        return std::nullopt;
    double result = 0;
    const char *end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, result, std::chars_format::fixed);
    const bool isAll = read.ptr == end || static_cast<unsigned char>(*read.ptr) >= 0x80;
    if (read.ec != std::errc() || !isAll)
        return std::nullopt;
    return result == 0 ? 0 : result; // never -0, which would show its sign
}

} // namespace

double leadingNumber(std::string_view text)
{
    if (const auto plain = plainNumber(text))
        return *plain;
    Reader reader(text);
    if (reader.peek() == '&') {
        reader.take();
        const int radix = reader.is('H') ? 16 : reader.is('O') ? 8 : 0;
        if (radix == 0)
            return 0;
        reader.take();
        return radixNumber(reader, radix);
    }
    const bool negative = reader.peek() == '-';
    if (negative || reader.peek() == '+')
        reader.take();
    std::string digits;
    takeDigits(reader, digits);
    const size_t whole = digits.size();
    if (reader.peek() == '.') {
        reader.take();
        digits += '.';
        takeDigits(reader, digits);
    }
    if (digits.empty() || (whole == 0 && digits.size() == 1))
        return 0;
    if (whole == 0)
        digits.insert(digits.begin(), '0');
    takeExponent(reader, digits);
    const double result = fromDigits(digits);
    return negative && result != 0 ? -result : result;
}

double leadingNumber(QStringView text)
{
    std::string ascii;
    for (const QChar c : text) {
        if (c.unicode() >= 0x80)
            break;
        ascii += static_cast<char>(c.unicode());
    }
    return leadingNumber(std::string_view(ascii));
}

std::string numberText(double number)
{
    char text[40];
    // Whole numbers are the common case and need no search for the shortest form.
    if (std::abs(number) < 1e15 && number == std::trunc(number)) {
        const auto end = std::to_chars(text, text + sizeof text, static_cast<long long>(number)).ptr;
        return std::string(text, end);
    }
    const auto end = std::to_chars(text, text + sizeof text, number, std::chars_format::general, 15).ptr;
    std::replace(text, end, 'e', 'E');
    return std::string(text, end);
}

QString numberString(double number)
{
    return QString::fromStdString(numberText(number));
}

std::string exactNumberText(double number)
{
    constexpr double largestWhole = 9223372036854775808.0; // 2^63
    char text[40];
    const bool isWhole = std::abs(number) < largestWhole && number == std::trunc(number);
    const auto end = isWhole ? std::to_chars(text, text + sizeof text, static_cast<long long>(number)).ptr
                             : std::to_chars(text, text + sizeof text, number).ptr;
    return std::string(text, end);
}

std::optional<double> exactNumber(std::string_view text)
{
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isRead = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return isRead ? std::optional(number) : std::nullopt;
}

} // namespace ebtq
