#pragma once

#include "library/controls/control.h"

#include <QList>
#include <QTimer>

namespace ebtq {

class VSFlexGrid;

/// A box that searches the loaded rows of a grid while the user types: the search event follows the last key
/// after a pause, Enter brings it at once, an emptied box raises the clear event.
class SearchBox : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY textChanged)

public:
    explicit SearchBox(const QString &name, int index = -1);

    [[nodiscard]] const QString &Text() const { return m_text; }
    void setText(const QString &text);
    /// The pause in milliseconds, as text: the setting that screens give.
    void setSetting(const QString &milliseconds);
    [[nodiscard]] bool FilterFlag() const { return m_filterFlag; }
    void setFilterFlag(bool filter) { m_filterFlag = filter; }
    /// Takes the columns of the grid that can be seen as the columns to search.
    void bindColumns(const VSFlexGrid &grid);
    [[nodiscard]] const QList<int> &columns() const { return m_columns; }
    /// What a view calls on Enter.
    void searchNow();

Q_SIGNALS:
    void Search(const QString &text);
    void Clear();
    void textChanged();

private:
    QString m_text;
    QTimer m_pause;
    bool m_filterFlag = false;
    QList<int> m_columns;
};

} // namespace ebtq
