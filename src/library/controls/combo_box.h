#pragma once

#include "library/controls/control.h"

#include <QList>
#include <QStringList>

namespace ebtq {

/// A drop-down list into which a text can be typed as well. Each entry may have a key; entries of one name
/// are distinguished by their position.
class XPCombo : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY Change)
    Q_PROPERTY(int ListIndex READ ListIndex WRITE setListIndex NOTIFY Change)

public:
    explicit XPCombo(const QString &name, int index = -1);
    [[nodiscard]] const QString &Text() const { return m_text; }
    /// The entry becomes the first of that name.
    void setText(const QString &text);
    [[nodiscard]] const QStringList &items() const { return m_items; }
    /// Keeps the text; `keys` has none or one for each entry.
    void setItems(const QStringList &items, const QList<int> &keys = {});
    /// The entry that the text is of; -1 for a text of its own.
    [[nodiscard]] int ListIndex() const { return m_index; }
    /// Nothing for a number that is no entry's.
    void setListIndex(int index);
    static constexpr int noKey = -1;
    /// The key of an entry; noKey when it has none.
    [[nodiscard]] int ItemData(int index) const { return m_keys.value(index, noKey); }
    /// What a view calls when a person has chosen or confirmed what the text says.
    void reportClick() { Q_EMIT Click(); }

Q_SIGNALS:
    void Change();
    void Click();

private:
    QString m_text;
    QStringList m_items;
    QList<int> m_keys;
    int m_index = -1;
};

} // namespace ebtq
