#include "agency.h"
#include "benchmarks.h"
#include "host/module_ids.h"
#include "library/controls/shown_grid.h"
#include "library/listings/fcxx.h"
#include "measure.h"
#include "screens/export/table_text.h"
#include "screens/export/workbook.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryDir>

namespace ebtq::bench {

namespace {

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What no export can be faster than: the same bytes, in the same safe way, without making them.
void writePlain(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw std::runtime_error("the plain file could not be written");
}

ShownGrid shownOf(const VSFlexGrid &grid)
{
    ShownGrid table(grid);
    table.keepCaptioned();
    return table;
}

} // namespace

int exportBenchmark(const Options &options)
{
    Agency agency(options);
    Fcxx list(agency.desktop());
    list.IReportUI_Init(agency.app(), host::ListingModule);
    if (!list.IReportUI_Refresh())
        return 1;
    const QTemporaryDir folder;
    const QString csv = folder.filePath(QStringLiteral("list.csv"));
    const QString xlsx = folder.filePath(QStringLiteral("list.xlsx"));
    writeCsv(shownOf(list.VS()), csv);
    const QByteArray bytes = contentsOf(csv);
    const auto times =
        medians({{"plain", [&] { writePlain(folder.filePath(QStringLiteral("plain")), bytes); }},
                 {"csv", [&] { writeCsv(shownOf(list.VS()), csv); }},
                 {"xlsx", [&] { writeWorkbook(shownOf(list.VS()), xlsx); }}},
                options.rounds);
    print({{QStringLiteral("benchmark"), QStringLiteral("export")},
           {QStringLiteral("rows"), list.VS().Rows() - 1},
           {QStringLiteral("csv_bytes"), static_cast<double>(bytes.size())},
           {QStringLiteral("xlsx_bytes"), static_cast<double>(QFileInfo(xlsx).size())},
           {QStringLiteral("plain_ms"), rounded(times[0])},
           {QStringLiteral("csv_ms"), rounded(times[1])},
           {QStringLiteral("xlsx_ms"), rounded(times[2])},
           {QStringLiteral("ratio"), rounded(times[1] / times[0])},
           {QStringLiteral("xlsx_ratio"), rounded(times[2] / times[0])}});
    return 0;
}

} // namespace ebtq::bench
