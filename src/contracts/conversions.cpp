#include "contracts/conversions.h"

#include "contracts/host_contracts.h"
#include "contracts/null_conv.h"
#include "database/values/date_text.h"
#include "database/values/number_text.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>
#include <string>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

struct DigitPattern
{
    qsizetype wholeDigits = 0; ///< that are always there
    qsizetype fewestDecimals = 0;
    qsizetype mostDecimals = 0;
    bool thousands = false;
};

std::optional<DigitPattern> readPattern(QStringView pattern)
{
    DigitPattern result;
    bool behindPoint = false;
    for (const QChar c : pattern) {
        if (c == u'.' && !behindPoint) {
            behindPoint = true;
        } else if (c == u',' && !behindPoint) {
            result.thousands = true;
        } else if (c == u'0' || c == u'#') {
            result.mostDecimals += behindPoint ? 1 : 0;
            if (behindPoint && c == u'0')
                result.fewestDecimals = result.mostDecimals;
            // A "#" right of a "0" is as good as a "0": "0#" never gives less than two digits.
            if (!behindPoint && (c == u'0' || result.wholeDigits > 0))
                ++result.wholeDigits;
        } else {
            return std::nullopt;
        }
    }
    return pattern.isEmpty() ? std::nullopt : std::optional(result);
}

/// A number above 0 as its 15 significant digits; its value is 0.DIGITS * 10^pointAt.
struct Decimal
{
    std::string digits;
    int pointAt = 0;

    explicit Decimal(double number)
    {
        char text[40];
        std::snprintf(text, sizeof text, "%.14e", number);
        digits = text[0] + std::string(text + 2, 14);
        pointAt = number == 0 ? 0 : std::atoi(text + 17) + 1;
    }

    void roundTo(qsizetype decimals)
    {
        const qsizetype kept = pointAt + decimals;
        if (kept >= std::ssize(digits))
            return;
        const bool up = kept >= 0 && digits[static_cast<size_t>(kept)] >= '5';
        digits.resize(static_cast<size_t>(std::max<qsizetype>(kept, 0)));
        if (up)
            increment();
    }

    void increment()
    {
        for (size_t at = digits.size(); at-- > 0; digits[at] = '0') {
            if (digits[at] != '9') {
                ++digits[at];
                return;
            }
        }
        digits.insert(digits.begin(), '1');
        ++pointAt;
    }

    [[nodiscard]] char digit(qsizetype at) const
    {
        return at >= 0 && at < std::ssize(digits) ? digits[static_cast<size_t>(at)] : '0';
    }
    [[nodiscard]] bool isZero() const { return digits.find_first_not_of('0') == std::string::npos; }
};

QString wholeText(const Decimal &number, const DigitPattern &pattern)
{
    const qsizetype count = std::max<qsizetype>(number.isZero() ? 0 : number.pointAt, pattern.wholeDigits);
    QString text;
    for (qsizetype left = count; left > 0; --left) {
        text += QLatin1Char(number.digit(number.pointAt - left));
        if (pattern.thousands && left > 1 && left % 3 == 1)
            text += u',';
    }
    return text;
}

QString decimalsText(const Decimal &number, const DigitPattern &pattern)
{
    QString text;
    for (qsizetype at = 0; at < pattern.mostDecimals; ++at)
        text += QLatin1Char(number.digit(number.pointAt + at));
    while (text.size() > pattern.fewestDecimals && text.endsWith(u'0'))
        text.chop(1);
    return text.isEmpty() ? text : u'.' + text;
}

std::optional<double> wholeNumberOf(const QVariant &value)
{
    if (value.userType() == QMetaType::QDateTime || value.userType() == QMetaType::QDate)
        return std::nullopt;
    bool read = false;
    const double number = QLocale::c().toDouble(NullConv::ToText(value).trimmed(), &read);
    return read && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

/// The ASCII character that a full-width one or a blank stands for. No compatible form of Unicode: "10²" is
/// not 102.
QChar plainCharacter(QChar character)
{
    constexpr char16_t first = u'！';
    constexpr char16_t last = u'～';
    if (character.unicode() >= first && character.unicode() <= last)
        return QChar(character.unicode() - first + u'!');
    return character.isSpace() ? QChar(u' ') : character;
}

QString plainText(QString text)
{
    std::transform(text.begin(), text.end(), text.begin(), plainCharacter);
    return Trim(text);
}

/// A day that is told by its distance from today.
std::optional<qint64> daysFromToday(const QString &text)
{
    static constexpr QStringView names[] = {u"前天", u"昨天", u"今天", u"明天", u"后天"};
    if (const auto *name = std::ranges::find(names, text); name != std::end(names))
        return name - std::begin(names) - 2;
    static const QRegularExpression count(uR"(\A[+-]\d{1,4}\z)"_s);
    return count.match(text).hasMatch() ? std::optional(text.toLongLong()) : std::nullopt;
}

/// The usual spellings of a day brought into the one that the database reads; others stay as they are.
QString withPlainDay(QString text, const QDate &today)
{
    static const QRegularExpression digits(uR"(\A(\d{4})(\d{2})(\d{2})(?=\z| ))"_s);
    static const QRegularExpression parts(uR"(\A(\d{4})[.年](\d{1,2})[.月](\d{1,2})[日号]?(?=\z| ))"_s);
    static const QRegularExpression noYear(uR"(\A(\d{1,2})[-/.月](\d{1,2})[日号]?(?=\z| ))"_s);
    const QString whole = uR"(\1-\2-\3)"_s;
    text.replace(digits, whole).replace(parts, whole);
    return text.replace(noYear, u"%1-\\1-\\2"_s.arg(today.year()));
}

} // namespace

double Val(const QString &text)
{
    return leadingNumber(QStringView(text));
}

double Val(const QVariant &value)
{
    return leadingNumber(QStringView(NullConv::ToText(value)));
}

std::optional<QString> TypedNumber(const QString &text)
{
    static const QRegularExpression number(
        uR"(\A[+-]?(?:(?:\d+|\d{1,3}(?:[, ]\d{3})+)(?:\.\d*)?|\.\d+)(?:[Ee][+-]?\d{1,3})?\z)"_s);
    QString plain = plainText(text);
    if (plain.isEmpty())
        return plain;
    if (!number.match(plain).hasMatch())
        return std::nullopt;
    plain.removeIf([](QChar character) { return character == u',' || character == u' '; });
    return wholeNumberOf(plain) ? std::optional(plain) : std::nullopt;
}

std::optional<QDateTime> TypedDate(const QString &text, const QDate &today)
{
    const QString plain = plainText(text);
    if (const auto days = daysFromToday(plain))
        return parseDate(regionalDate(today.addDays(*days)));
    return parseDate(withPlainDay(plain, today));
}

QString NumberText(double number)
{
    return numberString(number);
}

QString PlainDecimal(double number)
{
    if (!std::isfinite(number))
        throw Failure(u"数值超出范围，请重新输入！"_s);
    const QString text = numberString(number);
    return text.contains(u'E') ? QString::number(number, 'f', QLocale::FloatingPointShortest) : text;
}

QString Format(const QVariant &value, QStringView pattern)
{
    const auto shape = readPattern(pattern);
    const auto number = wholeNumberOf(value);
    if (!shape || !number)
        return NullConv::ToText(value);
    Decimal decimal(std::abs(*number));
    decimal.roundTo(shape->mostDecimals);
    const QString text = wholeText(decimal, *shape) + decimalsText(decimal, *shape);
    return *number < 0 && !decimal.isZero() ? u'-' + text : text;
}

QString Trim(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.mid(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text.toString();
}

int WholePart(double number)
{
    if (std::isnan(number))
        return 0;
    constexpr double least = std::numeric_limits<int>::min();
    constexpr double most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(number, least, most));
}

} // namespace ebtq
