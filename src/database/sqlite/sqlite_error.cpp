#include "database/sqlite/sqlite_error.h"

#include "database/sqlite/file_state.h"

#include <QRegularExpression>

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

struct Message
{
    int code; ///< primary or extended result code; extended ones come first
    const char16_t *text;
};

constexpr Message messages[] = {
    {SQLITE_CONSTRAINT_UNIQUE, u"数据重复：已有相同的记录，未保存！"},
    {SQLITE_CONSTRAINT_PRIMARYKEY, u"数据重复：已有相同的记录，未保存！"},
    {SQLITE_CONSTRAINT_CHECK, u"数据类型不符：数字或日期列不能保存这样的内容，未保存！"},
    {SQLITE_CONSTRAINT, u"数据不符合规定，未保存！"},
    {SQLITE_BUSY, u"数据库正被其他程序占用，请稍后重试！"},
    {SQLITE_LOCKED, u"数据库正被其他程序占用，请稍后重试！"},
    {SQLITE_READONLY_DBMOVED, u"数据库文件已被移动或删除，未保存！"},
    {SQLITE_READONLY_DIRECTORY, u"数据库所在的文件夹不可写，不能保存！"},
    {SQLITE_READONLY, u"数据库是只读的，不能保存！"},
    {SQLITE_FULL, u"磁盘空间不足，未保存！"},
    {SQLITE_IOERR_WRITE, u"磁盘空间不足或磁盘出错，未保存！"},
    {SQLITE_IOERR, u"读写数据库文件时出错，请检查磁盘！"},
    {SQLITE_CORRUPT, u"数据库文件已损坏，请用备份恢复！"},
    {SQLITE_NOTADB, u"该文件不是数据库，无法打开！"},
    {SQLITE_CANTOPEN, u"无法打开数据库文件，请检查路径和权限！"},
    {SQLITE_PERM, u"没有访问数据库文件的权限！"},
    {SQLITE_AUTH, u"没有访问数据库文件的权限！"},
    {SQLITE_NOMEM, u"内存不足，操作未完成！"},
    {SQLITE_TOOBIG, u"内容过长，无法保存！"},
    {SQLITE_INTERRUPT, u"操作已中断！"},
};

/// The schema changed meanwhile: another program dropped or renamed something.
constexpr struct
{
    const char *prefix;
    const char16_t *text;
} missing[] = {
    {"no such table: ", u"表 %1 不存在"},
    {"no such column: ", u"列 %1 不存在"},
};

/// The code that describes the cause: a full disk is reported by the engine as a failure to open or write
/// some file.
int meantCode(int extended, int systemError)
{
    const int code = extended & 0xff;
    return (code == SQLITE_IOERR || code == SQLITE_CANTOPEN) && isDiskFull(systemError) ? SQLITE_FULL
                                                                                        : extended;
}

QString forCode(int extended, const QString &engineText)
{
    for (const Message &message : messages) {
        if (message.code == extended || message.code == (extended & 0xff))
            return QString::fromUtf16(message.text) + u"（%1）"_s.arg(engineText);
    }
    return u"数据库错误：%1"_s.arg(engineText);
}

} // namespace

QString sqliteErrorText(sqlite3 *handle)
{
    const QString engineText = QString::fromUtf8(sqlite3_errmsg(handle));
    const int extended = meantCode(sqlite3_extended_errcode(handle), sqlite3_system_errno(handle));
    if ((extended & 0xff) != SQLITE_ERROR)
        return forCode(extended, engineText);
    for (const auto &entry : missing) {
        if (engineText.startsWith(QLatin1String(entry.prefix))) {
            static const QRegularExpression ownAlias(u"^t[0-9]+[.]"_s);
            const auto name = engineText.mid(static_cast<qsizetype>(qstrlen(entry.prefix))).remove(ownAlias);
            return QString::fromUtf16(entry.text).arg(name);
        }
    }
    // The dialect's own functions raise texts for the user.
    const bool ours =
        std::any_of(engineText.begin(), engineText.end(), [](QChar c) { return c.unicode() > 0x7f; });
    return ours ? engineText : u"数据库错误：%1"_s.arg(engineText);
}

} // namespace ebtq::db
