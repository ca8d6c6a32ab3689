#pragma once

#include <QMarginsF>
#include <QPageLayout>
#include <QString>

#include <span>

namespace ebtq::shell {

/// How a list is put on paper; kept for each list in its print file.
struct PrintSettings
{
    QPageSize::PageSizeId paper = QPageSize::A4;
    bool isLandscape = true;           ///< lists are wider than tall
    QMarginsF margins{12, 12, 12, 12}; ///< in millimetres
    bool fitsWidth = true;             ///< all columns on one page as long as they can be read
    double titleSize = 14;             ///< in points
    int copies = 1;

    bool operator==(const PrintSettings &) const = default;
};

struct Paper
{
    QPageSize::PageSizeId id;
    QStringView key; ///< in the print file
    QStringView caption;
};
[[nodiscard]] std::span<const Paper> papers();

constexpr double widestMargin = 60; // millimetres: the smallest paper keeps room for a list
constexpr double smallestTitle = 8;
constexpr double largestTitle = 36;
constexpr int mostCopies = 99;

/// The whole paper, without margins: a Printout keeps them by itself.
[[nodiscard]] QPageLayout paperLayout(const PrintSettings &settings);

/// A file that is missing or damaged, or a line of it, leaves the usual setting in force.
[[nodiscard]] PrintSettings readPrintSettings(const QString &file);
/// "key=value" lines. The file is complete or unchanged; throws Failure when it cannot be written.
void writePrintSettings(const QString &file, const PrintSettings &settings);

} // namespace ebtq::shell
