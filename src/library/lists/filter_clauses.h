#pragma once

#include "database/values/sql_text.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <map>
#include <span>

namespace ebtq {

/// One clause of a list's filter, which begins with " and ". Texts are trimmed, and an empty field adds
/// nothing.
struct FilterClause
{
    enum Kind {
        Text,       ///< `before`, the text as typed, `behind`
        Key,        ///< `before`, the field's numeric value, `behind`; also for a text of blanks alone
        TextKey,    ///< the same, but not for blanks alone
        NextDay,    ///< `before`, the day after the typed one, `behind`
        Ticks,      ///< `before` with only the first box ticked, `behind` with only the second; else nothing
        Period,     ///< `before`, the first day of the period, `behind`
        PeriodTime, ///< the same with the time of day
    };
    Kind kind;
    int field; ///< -1 for the ticks and the period
    QStringView before;
    QStringView behind = {};
};

/// What the filter controls of a list hold when it is loaded.
struct FilterValues
{
    struct Field
    {
        QString text = {}; ///< as typed
        double key = 0;    ///< the leading number of the field's value
    };
    std::map<int, Field> fields = {};
    bool first = false; ///< of the two ticks
    bool second = false;
    QString period = {}; ///< as in the combo box
};

/// The where clause with a blank in front, its clauses in the table's order; nothing when nothing is
/// filtered. Throws Failure for a date that is none and a number that is not finite.
[[nodiscard]] SqlText filterWhere(std::span<const FilterClause> clauses, const FilterValues &values,
                                  const QDateTime &now);

/// Captions of the periods, in the order of the combo box. "十天内" and "十五月内" are no periods, as "全部"
/// is none: users and stored layouts rely on them to show all rows. The periods of ten and fifteen days are
/// reached by typing their texts.
[[nodiscard]] QStringList periodCaptions();

} // namespace ebtq
