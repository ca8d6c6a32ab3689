#include "screens/export/table_text.h"

#include "contracts/host_contracts.h"
#include "library/controls/shown_grid.h"

#include <QRegularExpression>
#include <QSaveFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr size_t chunk = 1U << 16;
constexpr int rowsBetweenProgress = 512;

/// Most cells are decided by their first byte.
bool isFormula(std::string_view text)
{
    constexpr std::string_view firstBytes = "=+-@\t\r\n\xEF";
    if (text.empty() || firstBytes.find(text.front()) == std::string_view::npos)
        return false;
    constexpr std::string_view openings[] = {"=", "+", "-", "@", "\t", "\r", "\n", "＝", "＋", "－", "＠"};
    return std::ranges::any_of(openings, [&](std::string_view each) { return text.starts_with(each); }) &&
           !looksLikeNumber(text);
}

std::string_view digitsTaken(std::string_view &text, std::string_view alphabet)
{
    const size_t end = std::min(text.find_first_not_of(alphabet), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end);
    return taken;
}

bool hasDigit(std::string_view text)
{
    return text.find_first_of("0123456789") != std::string_view::npos;
}

/// An exponent at the beginning of the text is taken away.
void skipExponent(std::string_view &text)
{
    std::string_view rest = text;
    if (rest.empty() || (rest.front() != 'E' && rest.front() != 'e'))
        return;
    rest.remove_prefix(1);
    if (!rest.empty() && (rest.front() == '+' || rest.front() == '-'))
        rest.remove_prefix(1);
    if (!digitsTaken(rest, "0123456789").empty())
        text = rest;
}

void flush(QSaveFile &file, std::string &text)
{
    if (file.write(text.data(), static_cast<qint64>(text.size())) != static_cast<qint64>(text.size()))
        throw Failure(notWritten(file.fileName(), file.errorString()));
    text.clear();
}

void appendRow(const ShownGrid &table, int row, std::string &out)
{
    for (size_t column = 0; column < table.columns().size(); ++column) {
        if (column > 0)
            out += ',';
        appendCsvCell(table.shown(row, static_cast<int>(column)), out);
    }
    out += "\r\n";
}

void appendCaptions(const ShownGrid &table, std::string &out)
{
    for (const PrintedGrid::Column &column : table.columns()) {
        if (&column != &table.columns().front())
            out += ',';
        appendCsvCell(column.caption.toStdString(), out);
    }
    out += "\r\n";
}

QString tabbedCell(QString text)
{
    const bool needsQuotes = std::ranges::any_of(
        text, [](QChar c) { return c == u'\t' || c == u'\n' || c == u'\r' || c == u'"'; });
    return needsQuotes ? u'"' + text.replace(u'"', u"\"\""_s) + u'"' : text;
}

/// One row, the captions for -1, each cell through `wrap`.
template<class Wrap> QString rowOf(const ShownGrid &table, int row, QStringView between, Wrap wrap)
{
    QString line;
    for (int column = 0; column < static_cast<int>(table.columns().size()); ++column) {
        if (column > 0)
            line += between;
        line +=
            wrap(row < 0 ? table.columns()[static_cast<size_t>(column)].caption : table.text(row, column));
    }
    return line;
}

/// A spreadsheet would cut leading zeros and round what has many digits.
bool survivesAsNumber(std::string_view text)
{
    constexpr size_t mostDigits = 15;
    const bool hasLeadingZero = text.size() > 1 && text[0] == '0' && text[1] != '.';
    return looksLikeNumber(text) && !hasLeadingZero && text.size() <= mostDigits;
}

/// A spreadsheet would begin a new cell with each line.
QString inOneCell(const QString &text)
{
    static const QRegularExpression lineEnd(u"\r\n|\r|\n"_s);
    return text.toHtmlEscaped().replace(lineEnd, u"<br style=\"mso-data-placement:same-cell\"/>"_s);
}

QString htmlCell(const QString &text)
{
    const QString kind =
        survivesAsNumber(text.toStdString()) ? QString() : u" style=\"mso-number-format:'\\@'\""_s;
    return u"<td%1>"_s.arg(kind) + inOneCell(text) + u"</td>"_s;
}

} // namespace

bool looksLikeNumber(std::string_view text)
{
    if (!text.empty() && (text.front() == '+' || text.front() == '-'))
        text.remove_prefix(1);
    const bool hasWhole = hasDigit(digitsTaken(text, "0123456789,"));
    bool hasFraction = false;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        hasFraction = !digitsTaken(text, "0123456789").empty();
    }
    skipExponent(text);
    if (text.starts_with('%'))
        text.remove_prefix(1);
    return (hasWhole || hasFraction) && text.empty();
}

void appendCsvCell(std::string_view text, std::string &out)
{
    const bool isGuarded = isFormula(text);
    const auto isSpecial = [](char c) { return c == '"' || c == ',' || c == '\r' || c == '\n'; };
    if (std::ranges::none_of(text, isSpecial)) {
        out += isGuarded ? "'" : "";
        out += text;
        return;
    }
    out += isGuarded ? "\"'" : "\"";
    for (const char c : text)
        out.append(c == '"' ? 2U : 1U, c);
    out += '"';
}

bool writeCsv(const ShownGrid &table, const QString &path, const ExportProgress &progress)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw Failure(notWritten(path, file.errorString()));
    std::string text(byteOrderMark);
    appendCaptions(table, text);
    for (int row = 0; row < table.rowCount(); ++row) {
        appendRow(table, row, text);
        if (text.size() >= chunk)
            flush(file, text);
        if (progress && row % rowsBetweenProgress == 0 && !progress(row))
            return false;
    }
    flush(file, text);
    if (!file.commit())
        throw Failure(notWritten(path, file.errorString()));
    return true;
}

QString tabbedText(const ShownGrid &table, Formulas formulas)
{
    const auto cell = [formulas](const QString &text) {
        const bool isGuarded = formulas == Formulas::Guarded && isFormula(text.toStdString());
        return tabbedCell(isGuarded ? u'\'' + text : text);
    };
    QString text;
    for (int row = -1; row < table.rowCount(); ++row)
        text += rowOf(table, row, u"\t", cell) + u"\r\n"_s;
    return text;
}

QString htmlTable(const ShownGrid &table)
{
    const auto heading = [](const QString &text) { return u"<th>%1</th>"_s.arg(text.toHtmlEscaped()); };
    QString html = u"<table border=\"1\"><tr>%1</tr>\n"_s.arg(rowOf(table, -1, u"", heading));
    for (int row = 0; row < table.rowCount(); ++row)
        html += u"<tr>%1</tr>\n"_s.arg(rowOf(table, row, u"", htmlCell));
    return html + u"</table>"_s;
}

QString notWritten(const QString &path, const QString &reason)
{
    return u"无法写入文件“%1”，请检查文件夹的权限、磁盘空间，以及文件是否正被其他程序使用！（%2）"_s.arg(
        path, reason);
}

} // namespace ebtq
