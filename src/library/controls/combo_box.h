#pragma once

#include "library/controls/control.h"

#include <QStringList>

namespace ebtq {

/// A drop-down list into which a text can be typed as well.
class XPCombo : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY Change)

public:
    explicit XPCombo(const QString &name, int index = -1);
    [[nodiscard]] const QString &Text() const { return m_text; }
    void setText(const QString &text);
    [[nodiscard]] const QStringList &items() const { return m_items; }
    void setItems(const QStringList &items);

Q_SIGNALS:
    void Change();

private:
    QString m_text;
    QStringList m_items;
};

} // namespace ebtq
