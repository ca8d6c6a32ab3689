#include "shell/print/printout.h"

#include "screens/look/look.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>

#include <algorithm>

namespace ebtq::shell {

namespace {

constexpr double dotsPerPoint = Printout::dotsPerInch / 72.0;
constexpr double dotsPerPixel = Printout::dotsPerInch / 96.0;
constexpr double dotsPerMillimetre = Printout::dotsPerInch / 25.4;
/// Of the rows, as on the screen; and the smallest that can still be read.
constexpr double textPoints = 9.75;
constexpr double smallestPoints = 6;
constexpr double footPoints = 8;
/// Around the text of a cell, in parts of a line's height.
constexpr double paddingAcross = 0.35;
constexpr double paddingAbove = 0.2;
constexpr double lineWidth = 6; // dots
constexpr int measuredRows = 200;
constexpr int measuredSums = 20; // at the end
constexpr double widestFit = 260 * dotsPerPixel;

/// Without shaping: a digit that the font substitutes between Latin letters could not be found by a search in
/// the PDF file.
QFont fontOf(double points, bool isBold = false)
{
    QFont font = QApplication::font();
    font.setPixelSize(qRound(points * dotsPerPoint));
    font.setBold(isBold);
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

/// Lines that end in a carriage return, without blank ones at the end.
QStringList linesOf(QString text)
{
    QStringList lines = text.replace(u'\t', QStringLiteral("        ")).split(u'\r');
    while (!lines.isEmpty() && lines.constLast().trimmed().isEmpty())
        lines.removeLast();
    return lines;
}

QColor colorOf(int number, const QColor &usual)
{
    return number == 0 ? usual : QColor(number & 0xFF, number >> 8 & 0xFF, number >> 16 & 0xFF);
}

Qt::Alignment across(PrintedGrid::Alignment alignment)
{
    switch (alignment) {
    case PrintedGrid::Alignment::Centre:
        return Qt::AlignHCenter;
    case PrintedGrid::Alignment::Right:
        return Qt::AlignRight;
    default:
        return Qt::AlignLeft;
    }
}

/// Paper is white, also with the dark colours.
const look::Tokens &ink()
{
    return look::tokens(look::Scheme::Light);
}

QImage inkedIcon(const QString &name, int size)
{
    QImage image = look::icon(name).pixmap(QSize(size, size), 1.0).toImage();
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), ink().ink);
    return image;
}

} // namespace

Printout::Printout(const PrintObject::Job &job, const QPageLayout &paper, const PrintSettings &settings,
                   const QDate &today)
    : m_grid(job.VSFlexGrid)
    , m_title(linesOf(job.title))
    , m_subtitle(linesOf(job.subtitle))
    , m_paper(paper)
    , m_settings(settings)
    , m_today(today)
    , m_paperSize(paper.fullRect(QPageLayout::Inch).size() * dotsPerInch)
    , m_titleText(fontOf(settings.titleSize, true))
    , m_footText(fontOf(footPoints))
    , m_cellText(fontOf(textPoints))
    , m_captionText(fontOf(textPoints, true))
{
    m_frame = QRectF(QPointF(), m_paperSize).marginsRemoved(settings.margins * dotsPerMillimetre);
}

bool Printout::layOut(const Progress &progress)
{
    m_columns = fitColumns(needs(), m_frame.width(), m_settings.fitsWidth ? smallestPoints / textPoints : 1);
    m_cellText = CellText(fontOf(textPoints * m_columns.scale));
    m_captionText = CellText(fontOf(textPoints * m_columns.scale, true));
    layOutHead();
    const int rows = m_grid.rowCount();
    m_firstRows = breakPages(
        rows, m_table.height() - captionHeight(), [this](int row) { return rowHeight(row); },
        [&](int row) { return !progress || progress(row, rows); });
    return !m_firstRows.empty();
}

void Printout::layOutHead()
{
    const double titles = m_titleText.lineHeight() * static_cast<double>(m_title.size()) +
                          m_footText.lineHeight() * static_cast<double>(m_subtitle.size());
    const double gap = m_footText.lineHeight() / 2;
    m_table = m_frame.adjusted(0, titles + gap, 0, -m_footText.lineHeight() - gap);
}

std::vector<ColumnNeed> Printout::needs() const
{
    std::vector<ColumnNeed> needs;
    for (int column = 0; column < static_cast<int>(m_grid.columns().size()); ++column)
        needs.push_back(need(column));
    return needs;
}

/// A column that nobody has set fits its contents, as it does on the screen. Sums are wider than what they
/// are of and stand at the end; their label finds room beside its column.
ColumnNeed Printout::need(int column) const
{
    const PrintedGrid::Column &given = m_grid.columns()[static_cast<size_t>(column)];
    const double width = given.width * dotsPerPixel;
    if (given.isWidthSet)
        return {width, width};
    double needed = m_captionText.width(given.caption);
    const int rows = m_grid.rowCount();
    for (int row = 0; row < std::min(rows, measuredRows); ++row)
        needed = std::max(needed, contentsWidth(row, column));
    for (int row = std::max(measuredRows, rows - measuredSums); row < rows; ++row)
        needed = std::max(needed, contentsWidth(row, column));
    needed = std::min(needed + 2 * paddingAcross * m_cellText.lineHeight() + lineWidth, widestFit);
    return {std::max(width, needed), needed};
}

double Printout::contentsWidth(int row, int column) const
{
    const double icon = m_grid.picture(row, column).isEmpty() ? 0 : m_cellText.lineHeight();
    const bool hasRoomBeside =
        column + 1 < static_cast<int>(m_grid.columns().size()) && isEmpty(row, column + 1);
    if (m_grid.isSumLabel(row, column) && hasRoomBeside)
        return icon;
    return std::max(icon, textOf(row, column).width(m_grid.text(row, column)));
}

const CellText &Printout::textOf(int row, int column) const
{
    return m_grid.look(row, column).isBold ? m_captionText : m_cellText;
}

double Printout::heightOf(qsizetype lines, const CellText &text)
{
    return (static_cast<double>(lines) + 2 * paddingAbove) * text.lineHeight();
}

double Printout::roomOf(double width, const CellText &text)
{
    return width - 2 * paddingAcross * text.lineHeight();
}

bool Printout::isEmpty(int row, int column) const
{
    return m_grid.text(row, column).isEmpty() && m_grid.picture(row, column).isEmpty();
}

std::vector<Printout::Cell> Printout::cellsOf(const FittedColumns::Band &band, int row) const
{
    std::vector<Cell> cells;
    bool runsOn = false;
    for (const FittedColumns::Column &column : band) {
        if (runsOn && isEmpty(row, column.number)) {
            cells.back().width += column.width;
            continue;
        }
        cells.push_back({column.number, column.left, column.width});
        runsOn = m_grid.isSumLabel(row, column.number);
    }
    return cells;
}

double Printout::rowHeight(int row) const
{
    qsizetype most = 1;
    for (const FittedColumns::Band &band : m_columns.bands) {
        for (const Cell &cell : cellsOf(band, row)) {
            const CellText &text = textOf(row, cell.column);
            most = std::max(most, text.lineCount(m_grid.text(row, cell.column), roomOf(cell.width, text)));
        }
    }
    return heightOf(most, m_cellText);
}

/// Captions wrap: paper has no tool tip for a cut one.
double Printout::captionHeight() const
{
    qsizetype most = 1;
    for (const FittedColumns::Band &band : m_columns.bands) {
        for (const FittedColumns::Column &column : band)
            most = std::max(
                most, m_captionText.lineCount(m_grid.columns()[static_cast<size_t>(column.number)].caption,
                                              roomOf(column.width, m_captionText)));
    }
    return heightOf(most, m_captionText);
}

int Printout::pageCount() const
{
    return static_cast<int>(m_firstRows.size() * m_columns.bands.size());
}

/// The bands of the same rows follow one another.
void Printout::paint(QPainter &painter, int page) const
{
    const auto bands = static_cast<int>(m_columns.bands.size());
    const auto at = static_cast<size_t>(page / bands);
    const FittedColumns::Band &band = m_columns.bands[static_cast<size_t>(page % bands)];
    const int end = at + 1 < m_firstRows.size() ? m_firstRows[at + 1] : m_grid.rowCount();
    painter.save();
    paintTitles(painter);
    paintCaptions(painter, band);
    QRectF place = m_table.adjusted(0, captionHeight(), 0, 0);
    for (int row = m_firstRows[at]; row < end; ++row) {
        place.setHeight(rowHeight(row));
        paintRow(painter, band, row, place);
        place.translate(0, place.height());
    }
    paintFoot(painter, page);
    painter.restore();
}

void Printout::paintTitles(QPainter &painter) const
{
    QRectF line = m_frame;
    painter.setPen(ink().ink);
    const auto paint = [&](const QStringList &texts, const CellText &text, Qt::Alignment alignment) {
        line.setHeight(text.lineHeight());
        painter.setFont(text.font());
        for (const QString &each : texts) {
            painter.drawText(line, alignment | Qt::AlignVCenter | Qt::TextSingleLine, each);
            line.translate(0, line.height());
        }
    };
    paint(m_title, m_titleText, Qt::AlignHCenter);
    paint(m_subtitle, m_footText, Qt::AlignLeft);
}

void Printout::paintCaptions(QPainter &painter, const FittedColumns::Band &band) const
{
    const double height = captionHeight();
    for (const FittedColumns::Column &column : band) {
        const PrintedGrid::Column &given = m_grid.columns()[static_cast<size_t>(column.number)];
        const QRectF cell(m_table.left() + column.left, m_table.top(), column.width, height);
        painter.fillRect(cell, ink().header);
        paintFrame(painter, cell);
        painter.setPen(ink().ink);
        paintLines(painter, cell, m_captionText.lines(given.caption, roomOf(column.width, m_captionText)),
                   given.captionAlignment, m_captionText);
    }
}

void Printout::paintRow(QPainter &painter, const FittedColumns::Band &band, int row,
                        const QRectF &place) const
{
    for (const Cell &cell : cellsOf(band, row))
        paintCell(painter, {place.left() + cell.left, place.top(), cell.width, place.height()}, row,
                  cell.column);
}

void Printout::paintCell(QPainter &painter, const QRectF &cell, int row, int column) const
{
    const PrintedGrid::CellLook look = m_grid.look(row, column);
    if (look.backColor != 0)
        painter.fillRect(cell, colorOf(look.backColor, Qt::white));
    paintFrame(painter, cell);
    paintPicture(painter, cell, m_grid.picture(row, column));
    const CellText &text = textOf(row, column);
    painter.setPen(colorOf(look.foreColor, ink().ink));
    paintLines(painter, cell, text.lines(m_grid.text(row, column), roomOf(cell.width(), text)),
               m_grid.columns()[static_cast<size_t>(column)].alignment, text);
}

void Printout::paintFrame(QPainter &painter, const QRectF &cell) const
{
    painter.setPen(QPen(ink().muted, lineWidth));
    painter.drawRect(cell);
}

void Printout::paintPicture(QPainter &painter, const QRectF &cell, const QString &name) const
{
    if (name.isEmpty())
        return;
    constexpr int fineness = 64; // pixels
    const double size = std::min(m_cellText.lineHeight(), cell.width());
    QRectF place(0, 0, size, size);
    place.moveCenter(cell.center());
    painter.drawImage(place, inkedIcon(name, fineness));
}

void Printout::paintLines(QPainter &painter, const QRectF &cell, const QStringList &lines,
                          PrintedGrid::Alignment alignment, const CellText &text) const
{
    const double padding = paddingAcross * text.lineHeight();
    QRectF line = cell.adjusted(padding, 0, -padding, 0);
    const double height = text.lineHeight() * static_cast<double>(lines.size());
    line.setTop(cell.center().y() - height / 2);
    line.setHeight(text.lineHeight());
    painter.setFont(text.font());
    for (const QString &each : lines) {
        painter.drawText(line, across(alignment) | Qt::AlignVCenter | Qt::TextSingleLine, each);
        line.translate(0, line.height());
    }
}

void Printout::paintFoot(QPainter &painter, int page) const
{
    QRectF line = m_frame;
    line.setTop(line.bottom() - m_footText.lineHeight());
    painter.setFont(m_footText.font());
    painter.setPen(ink().ink);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("打印日期：%1").arg(m_today.toString(Qt::ISODate)));
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter,
                     QStringLiteral("第 %1 页 共 %2 页").arg(page + 1).arg(pageCount()));
}

} // namespace ebtq::shell
