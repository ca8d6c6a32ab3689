#pragma once

#include "database/values/sql_text.h"
#include "library/lists/list_grid.h"

namespace ebtq {

class HostDb;
class VSFlexGrid;

/// Columns of a grid of follow-ups.
enum FollowUpColumn : int {
    FollowUpTime = 1, ///< after an empty, hidden column
    FollowUpContents,
    FollowUpDepartment,
    FollowUpAgent,
    FollowUpReminds,
    FollowUpReminderTime,
    FollowUpRange,
    FollowUpReminder,
    FollowUpResult,
    FollowUpResultTime,
    FollowUpKey ///< hidden
};

inline constexpr QStringView followUpFormat =
    u" |跟进时间            |跟进内容                                          |部门    |经纪人  "
    u"|下次提醒|提醒时间        |提醒范围|提醒内容                    |处理内容              "
    u"|处理时间            |跟进ID";

/// Of a detail tab; without a colour.
[[nodiscard]] const ListGrid &followUpGrid();

/// Columns and tables of a statement that fills such a grid from its first column on, between "select" and
/// "where". All joins are left joins, so a user in two departments shows his follow-ups twice.
[[nodiscard]] SqlText followUpSource();

/// The follow-ups of a listing or customer, newest first.
[[nodiscard]] SqlText followUpsOf(const QString &owner);

/// Writes a follow-up as it was saved into a row of the grid. Nothing when it was deleted meanwhile; throws
/// StatementFailure. An unknown range leaves its cell as it is.
void showFollowUp(HostDb &db, VSFlexGrid &grid, int row, const QString &followUp);

} // namespace ebtq
