#include "screens/look/look.h"

#include "screens/look/icon_engine.h"
#include "screens/look/theme.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QPalette>
#include <QPixmapCache>
#include <QStyleFactory>

using namespace Qt::StringLiterals;

// Outside of any namespace: the macro declares a function that the resource compiler defined there.
static void initialiseResources()
{
    Q_INIT_RESOURCE(look);
}

namespace ebtq::look {

namespace {

constexpr char darkProperty[] = "ebtqDarkScheme";

const Tokens lightTokens = {
    .ink = QColor(0x1f2933),
    .muted = QColor(0x6b7785),
    .line = QColor(0xdfe4ea),
    .border = QColor(0xdfe4ea),
    .window = QColor(0xf4f6f8),
    .card = QColor(0xffffff),
    .brand = QColor(0x1f6f78),
    .onBrand = QColor(0xffffff),
    .brandSoft = QColor(0xe3f1f1),
    .header = QColor(0xeef3f4),
    .currentRow = QColor(0xfff8d6),
    .zebra = QColor(0xf7fafa),
    .salePrice = QColor(0xb45309),
    .rent = QColor(0x1d4ed8),
    .danger = QColor(0xb42318),
    .navigation = QColor(0x17323b),
    .navigationInk = QColor(0xdbe7ea),
    .navigationMuted = QColor(0x8fa6ae),
    .navigationCurrent = QColor(0x1f6f78),
    .refusal = QColor(0xfff4d6),
    .refusalInk = QColor(0x7a4a00),
    .failure = QColor(0xfdecea),
    .failureInk = QColor(0x9b1c13),
};

const Tokens darkTokens = {
    .ink = QColor(0xe4e9ee),
    .muted = QColor(0x9aa7b4),
    .line = QColor(0x3d4a56),
    .border = QColor(0x708090),
    .window = QColor(0x161d23),
    .card = QColor(0x1e272f),
    .brand = QColor(0x57b3bb),
    .onBrand = QColor(0x0b2226),
    .brandSoft = QColor(0x1d3d42),
    .header = QColor(0x27323b),
    .currentRow = QColor(0x4a4320),
    .zebra = QColor(0x263039),
    .salePrice = QColor(0xf0a35e),
    .rent = QColor(0x8fb3ff),
    .danger = QColor(0xff8a7d),
    .navigation = QColor(0x0f2229),
    .navigationInk = QColor(0xdbe7ea),
    .navigationMuted = QColor(0x8fa6ae),
    .navigationCurrent = QColor(0x1f6f78),
    .refusal = QColor(0x4a3a12),
    .refusalInk = QColor(0xffdf9e),
    .failure = QColor(0x4f1f1c),
    .failureInk = QColor(0xffc9c2),
};

QFont textFont()
{
    QFont font;
    font.setFamilies({u"Noto Sans CJK SC"_s, u"Microsoft YaHei"_s, u"PingFang SC"_s, u"sans-serif"_s});
    font.setPixelSize(13);
    return font;
}

} // namespace

const Tokens &tokens(Scheme scheme)
{
    return scheme == Scheme::Dark ? darkTokens : lightTokens;
}

const Tokens &tokens()
{
    return tokens(scheme());
}

Scheme scheme()
{
    return qApp && qApp->property(darkProperty).toBool() ? Scheme::Dark : Scheme::Light;
}

void apply(QApplication &application, Scheme scheme)
{
    initialiseResources();
    application.setProperty(darkProperty, scheme == Scheme::Dark);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setFont(textFont());
    QApplication::setPalette(palette(tokens(scheme)));
    application.setStyleSheet(styleSheet(tokens(scheme)));
}

QIcon icon(const QString &breezeName, QColor Tokens::*ink)
{
    initialiseResources();
    if (!QFile::exists(iconFile(breezeName, 16))) {
        qWarning("No icon is named %s", qPrintable(breezeName));
        return {};
    }
    return QIcon(new IconEngine(breezeName, ink));
}

} // namespace ebtq::look
