#pragma once

#include "contracts/host_contracts.h"
#include "host/module_ids.h"

#include <QDate>
#include <QString>

namespace ebtq::host {

/// What the program's own page does with follow-ups beside the lists of the component library: their
/// statements, each through HostDb. Every function throws Failure with a text for the person; then nothing
/// was changed.

/// A follow-up as it stood when a person began to deal with it.
struct Reminder
{
    QString key;     ///< 跟进ID
    QString userId;  ///< who wrote it
    QString ownerId; ///< key of the listing or customer
    QString contents;
    QString reminder; ///< 提醒内容
    QString result;   ///< 处理结果
    QString date;     ///< 提醒日期, as people write it
};

/// The record that a follow-up was written on.
struct FollowUpSource
{
    ModuleId module;
    QString key;
};

[[nodiscard]] Reminder readReminder(HostApp &app, const QString &followUp);
/// It has no result yet; one's own may be dealt with, others' with the right to edit follow-ups.
void requireOpenReminder(HostApp &app, const Reminder &reminder);
/// Enters what came of it, which ends the reminder. Who comes second is told what the first one entered.
void settleReminder(HostApp &app, const Reminder &reminder, const QString &result, const QDate &today);
/// Moves it to another day; not if somebody has dealt with it or moved it meanwhile.
void postponeReminder(HostApp &app, const Reminder &reminder, const QDate &date);
/// Where the record is found; it may have been deleted since.
[[nodiscard]] FollowUpSource sourceOf(HostApp &app, const Reminder &reminder);

} // namespace ebtq::host
