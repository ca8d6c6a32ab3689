#pragma once

#include "contracts/print_contract.h"
#include "shell/print/cell_text.h"
#include "shell/print/page_fitting.h"
#include "shell/print/print_settings.h"

#include <QDate>
#include <QHash>
#include <QImage>
#include <QRectF>

#include <functional>

class QPainter;

namespace ebtq::shell {

/// A list laid out on pages, for any paint device: a printer, a PDF file, a preview. It measures in dots of a
/// fixed resolution, so that all three break lines and pages alike. Title, subtitle and captions are on each
/// page.
class Printout
{
public:
    /// The grid of the job outlives it. `paper` may have been chosen at the printer; margins come from the
    /// settings.
    Printout(const PrintObject::Job &job, const QPageLayout &paper, const PrintSettings &settings,
             const QDate &today);

    /// Called with the rows done and the number of rows; false stops.
    using Progress = std::function<bool(int done, int total)>;
    /// To be called first. False when `progress` stopped it.
    bool layOut(const Progress &progress);

    [[nodiscard]] int pageCount() const;
    [[nodiscard]] const QPageLayout &paper() const { return m_paper; }
    /// In dots.
    [[nodiscard]] QSizeF paperSize() const { return m_paperSize; }
    /// Paints a page, counted from 0, with the paper's corner at the origin and one unit a dot.
    void paint(QPainter &painter, int page) const;

    static constexpr int dotsPerInch = 1200;

private:
    /// A part of a row: a column, or several where a label spans them.
    struct Cell
    {
        int column;
        double left;
        double width;
    };
    [[nodiscard]] std::vector<Cell> cellsOf(const FittedColumns::Band &band, int row) const;
    [[nodiscard]] bool isEmpty(int row, int column) const;
    [[nodiscard]] ColumnNeed need(int column) const;
    /// On one line.
    [[nodiscard]] double contentsWidth(int row, int column) const;
    /// Sums are bold.
    [[nodiscard]] const CellText &textOf(int row, int column) const;
    [[nodiscard]] std::vector<ColumnNeed> needs() const;
    [[nodiscard]] double rowHeight(int row) const;
    [[nodiscard]] static double heightOf(qsizetype lines, const CellText &text);
    /// The room for text in a column of that width.
    [[nodiscard]] static double roomOf(double width, const CellText &text);
    void layOutHead();
    [[nodiscard]] double captionHeight() const;
    void paintTitles(QPainter &painter) const;
    void paintCaptions(QPainter &painter, const FittedColumns::Band &band) const;
    void paintRow(QPainter &painter, const FittedColumns::Band &band, int row, const QRectF &place) const;
    void paintCell(QPainter &painter, const QRectF &cell, int row, int column) const;
    void paintPicture(QPainter &painter, const QRectF &cell, const QString &name) const;
    void paintLines(QPainter &painter, const QRectF &cell, const QStringList &lines,
                    PrintedGrid::Alignment alignment, const CellText &text) const;
    void paintFoot(QPainter &painter, int page) const;
    void paintFrame(QPainter &painter, const QRectF &cell) const;

    const PrintedGrid &m_grid;
    QStringList m_title;
    QStringList m_subtitle;
    QPageLayout m_paper;
    PrintSettings m_settings;
    QDate m_today;
    QSizeF m_paperSize;
    QRectF m_frame; ///< within the margins
    QRectF m_table; ///< of captions and rows
    CellText m_titleText;
    CellText m_footText;
    CellText m_cellText;
    CellText m_captionText;
    FittedColumns m_columns;
    std::vector<int> m_firstRows; ///< of each page of a band
};

} // namespace ebtq::shell
