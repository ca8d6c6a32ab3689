#include "screens/look/icon_engine.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QRegularExpression>
#include <QSvgRenderer>

namespace ebtq::look {

namespace {

constexpr qreal disabledOpacity = 0.4;

QByteArray tinted(const QString &file, const QColor &ink)
{
    static const QRegularExpression ownColours(
        QStringLiteral("(id=\"current-color-scheme\"[^>]*>).*?(</style>)"),
        QRegularExpression::DotMatchesEverythingOption);
    QFile drawing(file);
    if (!drawing.open(QIODevice::ReadOnly))
        return {};
    const Tokens &colours = tokens();
    const QString sheet =
        QStringLiteral(
            "\\1.ColorScheme-Text{color:%1;} .ColorScheme-NegativeText{color:%2;} "
            ".ColorScheme-Highlight,.ColorScheme-PositiveText,.ColorScheme-NeutralText{color:%3;}\\2")
            .arg(ink.name(), colours.danger.name(), colours.brand.name());
    return QString::fromUtf8(drawing.readAll()).replace(ownColours, sheet).toUtf8();
}

void render(QPainter &painter, const QRectF &bounds, const QString &file, const QColor &ink)
{
    QSvgRenderer renderer(tinted(file, ink));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, bounds);
}

} // namespace

QString iconFile(const QString &breezeName, int size)
{
    return QStringLiteral(":/ebtq/icons/%1/%2.svg").arg(size).arg(breezeName);
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
    const QColor ink = tokens().*m_ink;
    const int drawing = size.width() / scale < 22 ? 16 : 22;
    const QString cacheKey = QStringLiteral("ebtq-icon-%1-%2-%3x%4-%5-%6-%7")
                                 .arg(m_name, ink.name())
                                 .arg(size.width())
                                 .arg(size.height())
                                 .arg(drawing)
                                 .arg(mode)
                                 .arg(static_cast<int>(scheme()));
    QPixmap result;
    if (QPixmapCache::find(cacheKey, &result))
        return result;
    result = QPixmap(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setOpacity(mode == QIcon::Disabled ? disabledOpacity : 1);
    render(painter, QRectF(QPointF(), size), iconFile(m_name, drawing), ink);
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
    return QStringLiteral("ebtq");
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
