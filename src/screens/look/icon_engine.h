#pragma once

#include "screens/look/look.h"

#include <QIconEngine>

namespace ebtq::look {

/// The drawing of an icon made for `size` pixels, 16 or 22.
[[nodiscard]] QString iconFile(const QString &breezeName, int size);

/// Draws a Breeze icon in the colours of the scheme in force. Breeze names its colours by class and not by
/// value, so a scheme is put in by replacing the drawing's own style sheet.
class IconEngine : public QIconEngine
{
public:
    IconEngine(QString name, QColor Tokens::*ink);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    [[nodiscard]] QIconEngine *clone() const override;
    [[nodiscard]] QString key() const override;
    QString iconName() override;
    bool isNull() override;

private:
    QString m_name;
    QColor Tokens::*m_ink;
};

} // namespace ebtq::look
