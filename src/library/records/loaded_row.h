#pragma once

#include "library/records/record_table.h"

#include <QHash>

#include <vector>

namespace ebtq {

/// A column that another user has changed while a form showed its row.
struct ForeignChange
{
    const RecordColumn *column;
    QString loaded; ///< what it held when the form was loaded
    QString stored; ///< what it holds now
};

/// What the columns that a form writes held when it was loaded. Saving writes all of them, so a colleague's
/// change made meanwhile would be undone silently.
class LoadedRow
{
public:
    void clear();
    [[nodiscard]] bool isEmpty() const { return m_texts.isEmpty(); }
    void take(const RecordTable &record, const Recordset &row);
    /// "select" of these columns of the row with this key.
    [[nodiscard]] static SqlText statement(const RecordTable &record, const QString &key);
    [[nodiscard]] std::vector<ForeignChange> changesIn(const RecordTable &record, const Recordset &row) const;
    /// The change is known from now on.
    void accept(const ForeignChange &change);
    /// These texts are about to be written. The outcome may remain unknown, so they later count as this
    /// form's own change.
    void attempt(const RecordTable &record, const HeldText &held);

private:
    using Texts = QHash<QStringView, QString>; ///< by the column's name in the record's table
    Texts m_texts;
    Texts m_attempted;
};

} // namespace ebtq
