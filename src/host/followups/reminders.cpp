#include "host/followups/reminders.h"

#include "contracts/null_conv.h"
#include "contracts/user_id.h"
#include "database/values/date_text.h"
#include "database/values/sql_text.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

/// The operation of a module ends with Release, whatever happened; so does one of the program.
auto releasing(HostApp &app)
{
    return qScopeGuard([&app] { app.Db().Release(); });
}

void requireSuccess(HostDb &db)
{
    if (const QString failure = db.LastError().Description; !failure.isEmpty())
        throw Failure(failure);
}

SqlText withKey(QStringView before, const QString &key, QStringView behind = u"'")
{
    SqlText sql(before.toString());
    sql += typed(key);
    sql += behind;
    return sql;
}

Reminder read(HostApp &app, const QString &followUp)
{
    HostDb &db = app.Db();
    const auto rows =
        db.CreateQuery(
              withKey(u"select 用户ID,房源ID,跟进内容,提醒内容,处理结果,提醒日期 from fygj where 跟进ID='",
                      followUp))
            ->Open();
    requireSuccess(db);
    if (rows->Eof())
        throw Failure(u"这条跟进已被删除，请刷新列表！"_s);
    const auto text = [&](const QString &name) { return NullConv::ToText(rows->Fields(name).Value); };
    return {followUp,
            text(u"用户ID"_s),
            text(u"房源ID"_s),
            text(u"跟进内容"_s),
            text(u"提醒内容"_s),
            text(u"处理结果"_s),
            text(u"提醒日期"_s)};
}

/// Changes the row if it still is as the person saw it; else tells how it is now.
void change(HostApp &app, const Reminder &reminder, const SqlText &assignments)
{
    HostDb &db = app.Db();
    const auto released = releasing(app);
    requireOpenReminder(app, reminder);
    SqlText sql(u"update fygj set "_s);
    sql += assignments;
    sql += withKey(u" where 跟进ID='", reminder.key);
    sql += u" and (处理结果='' or 处理结果 is null)"_s;
    sql += reminder.date.isEmpty() ? SqlText(u" and 提醒日期 is null"_s)
                                   : withKey(u" and 提醒日期=#", reminder.date, u"#");
    const auto query = db.CreateQuery(sql);
    query->Execute();
    requireSuccess(db);
    if (query->RowsChanged() != 0)
        return;
    const Reminder now = read(app, reminder.key);
    throw Failure(now.result.isEmpty() ? u"这条提醒已被他人改到 %1，没有保存！"_s.arg(now.date)
                                       : u"这条提醒已被他人处理，没有保存！处理结果：%1"_s.arg(now.result));
}

bool exists(HostApp &app, const SqlText &sql)
{
    const QVariant found = app.Db().CreateQuery(sql)->Scalar();
    requireSuccess(app.Db());
    return found.isValid();
}

} // namespace

Reminder readReminder(HostApp &app, const QString &followUp)
{
    const auto released = releasing(app);
    return read(app, followUp);
}

void requireOpenReminder(HostApp &app, const Reminder &reminder)
{
    if (reminder.userId.compare(bareUserId(app.Session()), Qt::CaseInsensitive) != 0 &&
        !app.Rights(FollowUpModule)->Allowed(RightEdit))
        throw Failure(u"这条跟进是他人所写，您没有修改跟进的权限！"_s);
    if (!reminder.result.isEmpty())
        throw Failure(u"这条提醒已处理过，请刷新列表！处理结果：%1"_s.arg(reminder.result));
}

void settleReminder(HostApp &app, const Reminder &reminder, const QString &result, const QDate &today)
{
    if (result.trimmed().isEmpty())
        throw Failure(u"请输入处理结果！"_s);
    SqlText assignments(u"处理结果='"_s);
    assignments += typed(result.trimmed());
    assignments += u"',处理日期=#%1#"_s.arg(regionalDate(today));
    change(app, reminder, assignments);
}

void postponeReminder(HostApp &app, const Reminder &reminder, const QDate &date)
{
    if (date < app.Session().LoginDate())
        throw Failure(u"提醒日期不能早于业务日期！"_s);
    change(app, reminder, SqlText(u"提醒日期=#%1#"_s.arg(regionalDate(date))));
}

FollowUpSource sourceOf(HostApp &app, const Reminder &reminder)
{
    const auto released = releasing(app);
    if (exists(app, withKey(u"select 房源ID from fyxx where 房源ID='", reminder.ownerId)))
        return {ListingModule, reminder.ownerId};
    if (exists(app, withKey(u"select 客源ID from fykh where 客源ID='", reminder.ownerId)))
        return {CustomerModule, reminder.ownerId};
    throw Failure(u"这条跟进的来源已被删除！"_s);
}

} // namespace ebtq::host
