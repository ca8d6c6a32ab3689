#include "screens/look/icon_engine.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QRegularExpression>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace ebtq::look {

namespace {

constexpr qreal disabledOpacity = 0.4;

/// The style sheet by which a drawing learns its colours.
QString colourSheet(QColor Tokens::*ink)
{
    const Tokens &colours = tokens();
    // With a given ink, for a coloured background, red could not be seen.
    const QColor &warning = ink == &Tokens::ink ? colours.danger : colours.*ink;
    return u".ColorScheme-Text{color:%1;} .ColorScheme-NegativeText{color:%2;} "
           u".ColorScheme-Highlight,.ColorScheme-PositiveText,.ColorScheme-NeutralText{color:%3;}"_s.arg(
               (colours.*ink).name(), warning.name(), colours.brand.name());
}

QByteArray tinted(const QString &file, const QString &sheet)
{
    static const QRegularExpression ownColours(u"(id=\"current-color-scheme\"[^>]*>).*?(</style>)"_s,
                                               QRegularExpression::DotMatchesEverythingOption);
    QFile drawing(file);
    if (!drawing.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(drawing.readAll()).replace(ownColours, u"\\1%1\\2"_s.arg(sheet)).toUtf8();
}

void render(QPainter &painter, const QRectF &bounds, const QByteArray &drawing)
{
    QSvgRenderer renderer(drawing);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, bounds);
}

} // namespace

QString iconFile(const QString &breezeName, int size)
{
    return u":/ebtq/icons/%1/%2.svg"_s.arg(size).arg(breezeName);
}

IconEngine::IconEngine(QString name, QColor Tokens::*ink)
    : m_name(std::move(name))
    , m_ink(ink)
{}

void IconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal scale = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, scaledPixmap(rect.size() * scale, mode, state, scale));
}

QPixmap IconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return scaledPixmap(size, mode, state, 1);
}

QPixmap IconEngine::scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State, qreal scale)
{
    const QString file = iconFile(m_name, size.width() / scale < 22 ? 16 : 22);
    const QString sheet = colourSheet(m_ink);
    const QString cacheKey =
        u"%1 %2x%3 %4 %5"_s.arg(file).arg(size.width()).arg(size.height()).arg(mode).arg(sheet);
    QPixmap result;
    if (QPixmapCache::find(cacheKey, &result))
        return result;
    result = QPixmap(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setOpacity(mode == QIcon::Disabled ? disabledOpacity : 1);
    render(painter, QRectF(QPointF(), size), tinted(file, sheet));
    painter.end();
    QPixmapCache::insert(cacheKey, result);
    return result;
}

QIconEngine *IconEngine::clone() const
{
    return new IconEngine(m_name, m_ink);
}

QString IconEngine::key() const
{
    return u"ebtq"_s;
}

QString IconEngine::iconName()
{
    return m_name;
}

bool IconEngine::isNull()
{
    return false;
}

} // namespace ebtq::look
