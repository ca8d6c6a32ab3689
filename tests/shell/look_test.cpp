#include "screens/look/look.h"
#include "screens/look/message_text.h"
#include "screens/look/theme.h"
#include "shell/module_catalog.h"

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>

namespace ebtq::look {
namespace {

double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The contrast ratio of WCAG: 1 for equal colours, 21 for black on white.
double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

using Colour = QColor Tokens::*;
const std::tuple<const char *, Colour, std::vector<Colour>> textsOnGrounds[] = {
    {"ink",
     &Tokens::ink,
     {&Tokens::window, &Tokens::card, &Tokens::brandSoft, &Tokens::header, &Tokens::currentRow,
      &Tokens::zebra}},
    {"muted", &Tokens::muted, {&Tokens::card}},
    {"brand", &Tokens::brand, {&Tokens::card, &Tokens::window, &Tokens::brandSoft}},
    {"onBrand", &Tokens::onBrand, {&Tokens::brand}},
    {"salePrice", &Tokens::salePrice, {&Tokens::card, &Tokens::zebra, &Tokens::currentRow}},
    {"rent", &Tokens::rent, {&Tokens::card, &Tokens::zebra, &Tokens::currentRow}},
    {"danger", &Tokens::danger, {&Tokens::card, &Tokens::window}},
    {"navigationInk", &Tokens::navigationInk, {&Tokens::navigation, &Tokens::navigationCurrent}},
    {"navigationMuted", &Tokens::navigationMuted, {&Tokens::navigation}},
    {"refusalInk", &Tokens::refusalInk, {&Tokens::refusal}},
    {"failureInk", &Tokens::failureInk, {&Tokens::failure}},
};

TEST(Look, TextIsReadableOnItsGroundInBothSchemes)
{
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark})
        for (const auto &[name, text, grounds] : textsOnGrounds)
            for (const Colour ground : grounds)
                EXPECT_GE(contrast(tokens(scheme).*text, tokens(scheme).*ground), 4.5)
                    << name << " on " << (tokens(scheme).*ground).name().toStdString() << ", scheme "
                    << static_cast<int>(scheme);
    EXPECT_FALSE(styleSheet(tokens(Scheme::Light)).contains(u'@')) << "an unknown colour";
}

/// The value of a property in a rule of the style sheet, if it is a plain colour.
QColor colourIn(const QString &rule, const QString &property)
{
    const QRegularExpression value(u"(?:^|[;\\s])%1:[^;]*(#[0-9a-f]{6})"_qs.arg(property));
    return QColor(value.match(rule).captured(1));
}

TEST(Look, EachRuleOfTheStyleSheetCanBeReadAndItsFramesBeSeen)
{
    static const QRegularExpression rules(u"([^{}]+)\\{([^{}]*)\\}"_qs);
    static const QRegularExpression framed(
        u"^\\s*Q(PushButton|LineEdit|ComboBox|Menu|ToolTip)\\b[^:\\[]*$"_qs);
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        int texts = 0;
        auto found = rules.globalMatch(styleSheet(tokens(scheme)));
        while (found.hasNext()) {
            const auto match = found.next();
            const QString rule = match.captured(1).simplified();
            const QColor ground = colourIn(match.captured(2), u"background"_qs);
            const QColor ink = colourIn(match.captured(2), u"color"_qs);
            if (ground.isValid() && ink.isValid() && !rule.contains(u":disabled")) {
                ++texts;
                const double least = rule.contains(u"curtain") ? 3 : 4.5; // large letters
                EXPECT_GE(contrast(ink, ground), least) << rule.toStdString();
            }
            if (scheme == Scheme::Dark && framed.match(rule).hasMatch() && ground.isValid()) {
                EXPECT_GE(contrast(colourIn(match.captured(2), u"border"_qs), ground), 3)
                    << rule.toStdString();
            }
        }
        EXPECT_GT(texts, 15);
        EXPECT_GE(contrast(tokens(scheme).brand, tokens(scheme).card), 3)
            << "the frame of what has the keyboard";
    }
    const Tokens &dark = tokens(Scheme::Dark);
    for (const Colour ground : {&Tokens::card, &Tokens::window, &Tokens::zebra})
        EXPECT_GE(contrast(dark.border, dark.*ground), 3);
    EXPECT_GE(contrast(dark.zebra, dark.card), 1.1) << "rows";
    for (const Colour row : {&Tokens::card, &Tokens::zebra})
        EXPECT_GE(contrast(dark.currentRow, dark.*row), 1.3) << "the current row";
}

/// The colours of an icon's solid pixels.
QSet<QRgb> solidColours(const QIcon &icon, int size, qreal scale = 1, QIcon::Mode mode = QIcon::Normal)
{
    const QImage image = icon.pixmap(QSize(size, size), scale, mode).toImage();
    EXPECT_EQ(image.width(), static_cast<int>(size * scale));
    QSet<QRgb> result;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() == 255)
                result.insert(image.pixelColor(x, y).rgb());
    return result;
}

TEST(Look, IconsTakeTheColourOfTheScheme)
{
    const QIcon drawing = icon(u"list-add"_qs);
    EXPECT_EQ(solidColours(drawing, 16), QSet<QRgb>{tokens(Scheme::Light).ink.rgb()});
    EXPECT_EQ(solidColours(drawing, 16, 2), QSet<QRgb>{tokens(Scheme::Light).ink.rgb()});
    EXPECT_TRUE(solidColours(drawing, 16, 1, QIcon::Disabled).isEmpty()) << "a disabled icon is fainter";
    apply(*qApp, Scheme::Dark);
    EXPECT_EQ(solidColours(drawing, 16), QSet<QRgb>{tokens(Scheme::Dark).ink.rgb()});
    EXPECT_EQ(solidColours(icon(u"edit-delete"_qs), 16), QSet<QRgb>{tokens(Scheme::Dark).danger.rgb()});
    EXPECT_EQ(solidColours(icon(u"edit-delete"_qs, &Tokens::refusalInk), 16),
              QSet<QRgb>{tokens(Scheme::Dark).refusalInk.rgb()})
        << "another ink was asked for";
    apply(*qApp, Scheme::Light);
}

/// Icon names in the sources: whatever stands in a call of icon().
QSet<QString> iconNamesInSources()
{
    static const QRegularExpression call(u"\\bicon\\(QStringLiteral\\(\"([^\"]+)\"\\)"_qs);
    QSet<QString> names;
    QDirIterator files(QStringLiteral(EBTQ_SOURCE_DIR), {u"*.cpp"_qs}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        auto found = call.globalMatch(QString::fromUtf8(file.readAll()));
        while (found.hasNext())
            names.insert(found.next().captured(1));
    }
    return names;
}

bool drawsSomething(const QIcon &icon, int size)
{
    const QImage image = icon.pixmap(size).toImage();
    QImage nothing(image.size(), image.format());
    nothing.fill(Qt::transparent);
    return image != nothing;
}

TEST(Look, EveryIconInUseIsBuiltIn)
{
    QSet<QString> names = iconNamesInSources();
    EXPECT_GE(names.size(), 3) << "the search in the sources finds nothing";
    for (const shell::NavigationEntry &entry : shell::navigationEntries())
        names.insert(entry.icon.toString());
    for (const QString &name : names) {
        EXPECT_FALSE(icon(name).isNull()) << name.toStdString();
        for (const int size : {16, 22})
            EXPECT_TRUE(drawsSomething(icon(name), size)) << name.toStdString() << " at " << size;
    }
}

TEST(Look, MessagesAreShownWithoutTheProgramsOwnNames)
{
    const std::tuple<QString, QString, QString> cases[] = {
        {u"Fcxx-->IRptUI_Refresh::第 285 个字符处：文本没有结束"_qs, u"EBTQ_S"_qs, u"文本没有结束"_qs},
        {u"-->LoadData::数据库已断开"_qs, {}, u"数据库已断开"_qs},
        {u"客源-->LoadData::没有权限"_qs, u"客源"_qs, u"客源：没有权限"_qs},
        {u"Fcxx-->IRptUI_Init::初始化过程发生错误，原因:第 9 个字符处：停"_qs,
         {},
         u"初始化过程发生错误，原因:停"_qs},
        {u"DoSave:编号已用"_qs, u"提示:"_qs, u"提示：编号已用"_qs},
        {u"Py_Init:第 23 个字符处：停"_qs, {}, u"停"_qs},
        {u"IsCanDelete::被引用"_qs, {}, u"被引用"_qs},
        {u"删除数据时出错：第 3 个字符处：停"_qs, {}, u"删除数据时出错：停"_qs},
        {u"他说在第 3 个字符处：停"_qs, {}, u"他说在第 3 个字符处：停"_qs},
        {u"ERROR: x"_qs, {}, u"ERROR: x"_qs},
        {u"C:\\房源 a::b"_qs, {}, u"C:\\房源 a::b"_qs},
        {u"Fcxx-->Delete::"_qs, u"Fcxx"_qs, u"Fcxx-->Delete::"_qs},
    };
    for (const auto &[text, title, shown] : cases)
        EXPECT_EQ(plainMessage(text, title), shown);
}

} // namespace
} // namespace ebtq::look
