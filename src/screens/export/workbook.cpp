#include "screens/export/workbook.h"

#include "contracts/host_contracts.h"
#include "database/values/date_text.h"
#include "library/controls/shown_grid.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>

#include <xlsxwriter.h>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int mostRows = 1'048'575; // of a sheet, without the captions
constexpr size_t mostDigits = 15;
constexpr qsizetype mostLetters = 32'767; // of a cell
constexpr int firstYear = 1901;
constexpr int rowsBetweenProgress = 256;
constexpr double pixelsPerCharacter = 7;
constexpr double widestColumn = 60;

enum class Kind { Text, Number, Date, Moment };

std::optional<double> numberIn(std::string_view text)
{
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const auto digits = std::ranges::count_if(text, [](char c) { return c >= '0' && c <= '9'; });
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    const bool isExact = std::isfinite(number) && static_cast<size_t>(digits) <= mostDigits;
    return isWhole && isExact ? std::optional(number) : std::nullopt;
}

/// What no XML document can hold would make the whole workbook unreadable, and a zero would end the text.
QString fitForXml(QString text)
{
    for (QChar &c : text) {
        if (c.isNull() || c == QChar(0xFFFE) || c == QChar(0xFFFF))
            c = QChar::ReplacementCharacter;
    }
    return text;
}

/// Where the file lies that a link leads to: the link is to stay one.
QString placeOf(const QString &path)
{
    const QFileInfo file(path);
    if (file.exists() && !file.isWritable())
        throw Failure(notWritten(path, u"文件是只读的"_s));
    return file.exists() ? file.canonicalFilePath() : path;
}

/// The number of a colour with red in the lowest byte, red first.
lxw_color_t redFirst(int color)
{
    const auto bits = static_cast<quint32>(color);
    return (bits & 0xFFU) << 16 | (bits & 0xFF00U) | (bits >> 16 & 0xFFU);
}

/// A workbook, written next to its target and renamed at the end.
class Workbook
{
public:
    explicit Workbook(const QString &path);
    ~Workbook();
    void addHeading(const ShownGrid &table);
    void addRow(const ShownGrid &table, int row);
    void finish();

private:
    struct FormatKey
    {
        Kind kind;
        int back;
        int fore;
        bool isBold;
        auto operator<=>(const FormatKey &) const = default;
    };
    void check(lxw_error error) const;
    struct Place
    {
        lxw_row_t row;
        lxw_col_t column;
    };
    void addCell(const ShownGrid &table, int row, int column);
    void addDate(const Place &place, const QDateTime &date, const PrintedGrid::CellLook &look);
    void addText(const Place &place, const QString &text, const PrintedGrid::CellLook &look,
                 const QString &caption);
    [[nodiscard]] lxw_format *format(Kind kind, const PrintedGrid::CellLook &look);
    [[nodiscard]] lxw_format *makeFormat(const FormatKey &key);

    QString m_path;
    QByteArray m_part;
    QByteArray m_folder;
    lxw_workbook *m_book = nullptr;
    lxw_worksheet *m_sheet = nullptr;
    std::map<FormatKey, lxw_format *> m_formats;
};

/// Temporary parts are written next to the file: when that disk is full, writing the workbook itself fails
/// too, and visibly.
Workbook::Workbook(const QString &path)
    : m_path(placeOf(path))
    , m_part(QFile::encodeName(u"%1.%2.part"_s.arg(m_path, QUuid::createUuid().toString(QUuid::Id128))))
    , m_folder(QFile::encodeName(QFileInfo(m_path).absolutePath()))
{
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = m_folder.data();
    m_book = workbook_new_opt(m_part.constData(), &options);
    m_sheet = m_book ? workbook_add_worksheet(m_book, "列表") : nullptr;
    if (!m_sheet)
        check(LXW_ERROR_CREATING_TMPFILE);
}

Workbook::~Workbook()
{
    if (m_book)
        lxw_workbook_free(m_book);
    QFile::remove(QFile::decodeName(m_part));
}

void Workbook::check(lxw_error error) const
{
    if (error != LXW_NO_ERROR)
        throw Failure(notWritten(m_path, QString::fromUtf8(lxw_strerror(error))));
}

lxw_format *Workbook::format(Kind kind, const PrintedGrid::CellLook &look)
{
    const FormatKey key{kind, look.backColor, look.foreColor, look.isBold};
    lxw_format *&known = m_formats[key];
    if (!known)
        known = makeFormat(key);
    return known;
}

lxw_format *Workbook::makeFormat(const FormatKey &key)
{
    lxw_format *made = workbook_add_format(m_book);
    if (key.kind == Kind::Date || key.kind == Kind::Moment)
        format_set_num_format(made, key.kind == Kind::Date ? "yyyy-mm-dd" : "yyyy-mm-dd hh:mm:ss");
    if (key.kind == Kind::Text)
        format_set_num_format(made, "@");
    if (key.isBold)
        format_set_bold(made);
    if (key.back != 0)
        format_set_bg_color(made, redFirst(key.back));
    if (key.fore != 0)
        format_set_font_color(made, redFirst(key.fore));
    return made;
}

void Workbook::addHeading(const ShownGrid &table)
{
    lxw_format *heading = format(Kind::Text, {0xF4F3EE, 0, true});
    const auto last = static_cast<lxw_col_t>(table.columns().size() - 1);
    for (lxw_col_t column = 0; column <= last; ++column) {
        const PrintedGrid::Column &shown = table.columns()[column];
        check(worksheet_set_column(m_sheet, column, column,
                                   std::min(shown.width / pixelsPerCharacter, widestColumn), nullptr));
        check(worksheet_write_string(m_sheet, 0, column, fitForXml(shown.caption).toUtf8().constData(),
                                     heading));
    }
    worksheet_freeze_panes(m_sheet, 1, 0);
    check(worksheet_autofilter(m_sheet, 0, 0, static_cast<lxw_row_t>(table.rowCount()), last));
}

void Workbook::addRow(const ShownGrid &table, int row)
{
    for (int column = 0; column < static_cast<int>(table.columns().size()); ++column)
        addCell(table, row, column);
}

void Workbook::addCell(const ShownGrid &table, int row, int column)
{
    const Place place{static_cast<lxw_row_t>(row + 1), static_cast<lxw_col_t>(column)};
    const ColumnType type = table.type(column);
    const PrintedGrid::CellLook look = table.look(row, column);
    // A sum of prices with their unit, which are texts, is a number.
    if (type == ColumnType::Integer || type == ColumnType::Number || table.isSum(row)) {
        if (const auto number = numberIn(table.stored(row, column)))
            return check(worksheet_write_number(m_sheet, place.row, place.column, *number,
                                                format(Kind::Number, look)));
    }
    if (type == ColumnType::Date) {
        const auto date = parseDate(table.text(row, column));
        if (date && date->date().year() >= firstYear)
            return addDate(place, *date, look);
    }
    addText(place, table.text(row, column), look, table.columns()[place.column].caption);
}

void Workbook::addDate(const Place &place, const QDateTime &date, const PrintedGrid::CellLook &look)
{
    const QTime time = date.time();
    lxw_datetime moment{date.date().year(), date.date().month(), date.date().day(),
                        time.hour(),        time.minute(),       static_cast<double>(time.second())};
    const Kind kind = time == QTime(0, 0) ? Kind::Date : Kind::Moment;
    check(worksheet_write_datetime(m_sheet, place.row, place.column, &moment, format(kind, look)));
}

void Workbook::addText(const Place &place, const QString &text, const PrintedGrid::CellLook &look,
                       const QString &caption)
{
    if (text.size() > mostLetters)
        throw Failure(
            u"“%1”一列有超过 %2 个字的内容，工作表放不下，请导出为 CSV！"_s.arg(caption).arg(mostLetters));
    check(worksheet_write_string(m_sheet, place.row, place.column, fitForXml(text).toUtf8().constData(),
                                 format(Kind::Text, look)));
}

void Workbook::finish()
{
    check(workbook_close(std::exchange(m_book, nullptr)));
    std::error_code error;
    std::filesystem::rename(m_part.toStdString(), QFile::encodeName(m_path).toStdString(), error);
    if (error)
        throw Failure(notWritten(m_path, QString::fromStdString(error.message())));
}

} // namespace

bool writeWorkbook(const ShownGrid &table, const QString &path, const ExportProgress &progress)
{
    if (table.rowCount() > mostRows)
        throw Failure(
            u"列表有 %1 行，超过工作表的上限 %2 行，请缩小范围或导出为 CSV！"_s.arg(table.rowCount())
                .arg(mostRows));
    if (table.columns().empty())
        throw Failure(u"列表没有可以导出的列！"_s);
    Workbook book(path);
    book.addHeading(table);
    for (int row = 0; row < table.rowCount(); ++row) {
        book.addRow(table, row);
        if (progress && row % rowsBetweenProgress == 0 && !progress(row))
            return false;
    }
    book.finish();
    return true;
}

} // namespace ebtq
