#pragma once

#include "database/values/sql_text.h"

#include <QDate>
#include <QString>

namespace ebtq {

/// What the filter controls of the listing list hold when it is loaded. Texts are as typed.
struct ListingFilter
{
    QString department = {};
    double departmentKey = 0; ///< counts when `department` is not empty
    QString agent = {};
    double agentKey = 0; ///< counts when `agent` is not empty
    QString district = {};
    QString building = {};
    QString rooms = {}; ///< as "3-2-1-1"
    bool forSale = false;
    bool forRent = false;
    QString state = {};
    QString window = {}; ///< of time, as in the combo box
};

/// Captions of the time windows, in the order of the combo box. "十天内" and "十五月内" are no windows, as
/// "全部" is none: what was stored and trained with them counts on seeing all listings. The windows of ten
/// and fifteen days are reached by typing their texts.
[[nodiscard]] QStringList listingWindowCaptions();

/// The where clause of a filter with a blank in front, or nothing when nothing is filtered.
[[nodiscard]] SqlText listingWhere(const ListingFilter &filter, const QDate &today);

} // namespace ebtq
