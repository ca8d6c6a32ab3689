#include "shell/print/print_settings.h"

#include "contracts/host_contracts.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <array>

namespace ebtq::shell {

namespace {

constexpr std::array<Paper, 7> knownPapers{{{QPageSize::A3, u"A3", u"A3 (297×420 毫米)"},
                                            {QPageSize::A4, u"A4", u"A4 (210×297 毫米)"},
                                            {QPageSize::A5, u"A5", u"A5 (148×210 毫米)"},
                                            {QPageSize::JisB4, u"B4", u"B4 (257×364 毫米)"},
                                            {QPageSize::JisB5, u"B5", u"B5 (182×257 毫米)"},
                                            {QPageSize::Prc16K, u"16K", u"16 开 (146×215 毫米)"},
                                            {QPageSize::Letter, u"Letter", u"信纸 (216×279 毫米)"}}};

constexpr qint64 mostBytes = 1 << 16; // a print file has a few lines

/// Takes a valid number within the range.
template<class Number> void takeNumber(const QString &text, Number least, Number most, Number &into)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (isNumber && number >= least && number <= most)
        into = static_cast<Number>(number);
}

void takeMargin(const QString &text, void (QMarginsF::*set)(qreal), QMarginsF &into)
{
    double margin = -1;
    takeNumber(text, 0.0, widestMargin, margin);
    if (margin >= 0)
        (into.*set)(margin);
}

void takePaper(const QString &text, QPageSize::PageSizeId &into)
{
    const auto found = std::ranges::find(knownPapers, QStringView(text), &Paper::key);
    if (found != knownPapers.end())
        into = found->id;
}

void takeFlag(const QString &text, bool &into)
{
    if (text == u"0" || text == u"1")
        into = text == u"1";
}

/// One line of the file: how a setting is read and written.
struct Entry
{
    QStringView key;
    void (*take)(PrintSettings &settings, const QString &text);
    QString (*text)(const PrintSettings &settings);
};

const Entry entries[] = {
    {u"Paper", [](PrintSettings &s, const QString &text) { takePaper(text, s.paper); },
     [](const PrintSettings &s) {
         return std::ranges::find(knownPapers, s.paper, &Paper::id)->key.toString();
     }},
    {u"Landscape", [](PrintSettings &s, const QString &text) { takeFlag(text, s.isLandscape); },
     [](const PrintSettings &s) { return QString::number(s.isLandscape); }},
    {u"MarginLeft",
     [](PrintSettings &s, const QString &text) { takeMargin(text, &QMarginsF::setLeft, s.margins); },
     [](const PrintSettings &s) { return QString::number(s.margins.left()); }},
    {u"MarginTop",
     [](PrintSettings &s, const QString &text) { takeMargin(text, &QMarginsF::setTop, s.margins); },
     [](const PrintSettings &s) { return QString::number(s.margins.top()); }},
    {u"MarginRight",
     [](PrintSettings &s, const QString &text) { takeMargin(text, &QMarginsF::setRight, s.margins); },
     [](const PrintSettings &s) { return QString::number(s.margins.right()); }},
    {u"MarginBottom",
     [](PrintSettings &s, const QString &text) { takeMargin(text, &QMarginsF::setBottom, s.margins); },
     [](const PrintSettings &s) { return QString::number(s.margins.bottom()); }},
    {u"FitWidth", [](PrintSettings &s, const QString &text) { takeFlag(text, s.fitsWidth); },
     [](const PrintSettings &s) { return QString::number(s.fitsWidth); }},
    {u"TitleSize",
     [](PrintSettings &s, const QString &text) {
         takeNumber(text, smallestTitle, largestTitle, s.titleSize);
     },
     [](const PrintSettings &s) { return QString::number(s.titleSize); }},
    {u"Copies", [](PrintSettings &s, const QString &text) { takeNumber(text, 1, mostCopies, s.copies); },
     [](const PrintSettings &s) { return QString::number(s.copies); }},
};

} // namespace

std::span<const Paper> papers()
{
    return knownPapers;
}

QPageLayout paperLayout(const PrintSettings &settings)
{
    return {QPageSize(settings.paper), settings.isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
            QMarginsF(), QPageLayout::Millimeter};
}

PrintSettings readPrintSettings(const QString &file)
{
    PrintSettings settings;
    QFile stored(file);
    if (!stored.open(QIODevice::ReadOnly))
        return settings;
    const QStringList lines = QString::fromUtf8(stored.read(mostBytes)).split(u'\n');
    for (const QString &line : lines) {
        const qsizetype equals = line.indexOf(u'=');
        const QString key = line.left(equals).trimmed();
        const auto entry = std::ranges::find(entries, QStringView(key), &Entry::key);
        if (equals > 0 && entry != std::end(entries))
            entry->take(settings, line.mid(equals + 1).trimmed());
    }
    return settings;
}

void writePrintSettings(const QString &file, const PrintSettings &settings)
{
    QString text;
    for (const Entry &entry : entries)
        text += entry.key.toString() + u'=' + entry.text(settings) + u'\n';
    const QByteArray bytes = text.toUtf8();
    QSaveFile stored(file);
    if (!stored.open(QIODevice::WriteOnly) || stored.write(bytes) != bytes.size() || !stored.commit())
        throw Failure(QStringLiteral("无法保存页面设置“%1”：%2").arg(file, stored.errorString()));
}

} // namespace ebtq::shell
