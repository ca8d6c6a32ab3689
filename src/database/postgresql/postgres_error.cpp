#include "database/postgresql/postgres_error.h"

#include <libpq-fe.h>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

struct Message
{
    const char *state; ///< the whole code or its class prefix; longer ones come first
    const char16_t *text;
};

constexpr Message messages[] = {
    {"23505", u"数据重复：已有相同的记录，未保存！"},
    {"23514", u"数据类型不符：数字或日期列不能保存这样的内容，未保存！"},
    {"23", u"数据不符合规定，未保存！"},
    {"22P02", u"数据类型不符：数字或日期列不能保存这样的内容，未保存！"},
    {"22007", u"数据类型不符：数字或日期列不能保存这样的内容，未保存！"},
    {"42804", u"数据类型不符：数字或日期列不能保存这样的内容，未保存！"},
    {"22001", u"内容过长，无法保存！"},
    {"22003", u"数字太大，操作未完成！"},
    {"2201", u"计算结果不是有效的数字"},
    {"22008", u"日期超出范围"},
    {"22", u"数据内容有误，操作未完成！"},
    {"55P03", u"数据库正被其他程序占用，请稍后重试！"},
    {"40", u"数据库正被其他程序占用，请稍后重试！"},
    {"25006", u"数据库是只读的，不能保存！"},
    {"42501", u"没有访问数据库的权限！"},
    {"42P01", u"表不存在"},
    {"42703", u"列不存在"},
    {"42883", u"数据库不认识此函数，可能是旧版本，请由管理员运行 ebtq-admin init！"},
    {"3D000", u"服务器上没有这个数据库！"},
    {"28", u"用户名或密码不对，服务器拒绝登录！"},
    {"53100", u"服务器磁盘空间不足，未保存！"},
    {"53200", u"服务器内存不足，操作未完成！"},
    {"53300", u"服务器的连接已满，请稍后重试！"},
    {"53", u"服务器资源不足，操作未完成！"},
    {"54000", u"内容过长，无法保存！"},
    {"54", u"语句过于复杂，请简化后重试！"},
    {"57014", u"操作超时或已被中断，请稍后重试！"},
    {"57P", u"数据库服务器正在停止或启动，请稍后重试！"},
    {"58", u"服务器读写文件时出错，请联系管理员！"},
    {"XX", u"数据库已损坏或服务器出错，请联系管理员！"},
};

/// Raised by the dialect's own functions with a text for the user.
constexpr char ownState[] = "EB001";

/// libpq's messages before a connection exists have no code. For several hosts there is a line for each: the
/// first one that matches is reported.
constexpr Message connectMessages[] = {
    {"password authentication failed", u"用户名或密码不对"},
    {"no password supplied", u"没有提供密码，请写入密码文件（见手册）"},
    {"root certificate file", u"找不到用来核对服务器证书的文件，请检查 sslrootcert"},
    {"does not match host name", u"服务器的证书不是给这个主机名的"},
    {"no encryption", u"服务器只接受加密连接，请检查 sslmode"},
    {"pg_hba.conf", u"服务器不允许从本机以此用户登录"},
    {"read-only", u"没有可写的服务器，能连上的都只能读"},
    {"hot standby", u"没有可写的服务器，能连上的都只能读"},
    {"starting up", u"服务器正在启动，请稍后重试"},
    {"not yet accepting", u"服务器正在启动，请稍后重试"},
    {"recovery mode", u"服务器正在启动，请稍后重试"},
    {"shutting down", u"服务器正在停止，请稍后重试"},
    {"does not exist", u"服务器上没有这个数据库或用户"},
    {"could not translate host name", u"找不到这台主机，请检查主机名和网络"},
    {"timeout expired", u"服务器没有应答，请检查网络"},
    {"timed out", u"服务器没有应答，请检查网络"},
    {"No route to host", u"网络不通，请检查网络"},
    {"Network is unreachable", u"网络不通，请检查网络"},
    {"closed the connection", u"服务器断开了连接，请稍后重试"},
    {"refused", u"服务器没有运行，或不接受网络连接"},
    {"too many", u"服务器的连接已满，请稍后重试"},
    {"connection slots", u"服务器的连接已满，请稍后重试"},
    {"not permitted to log in", u"服务器不允许此用户登录"},
    {"permission denied", u"此用户没有连接该数据库的权限"},
    {"certificate", u"服务器的证书不可信"},
    {"SSL", u"无法建立加密连接"},
    {"definition of service", u"没有这个名称的连接服务定义"},
};

QString textOf(const QByteArray &state, const QString &engineText)
{
    if (state == ownState)
        return engineText;
    for (const Message &message : messages) {
        if (state.startsWith(message.state))
            return QString::fromUtf16(message.text) + u"（%1）"_s.arg(engineText);
    }
    return u"数据库错误：%1"_s.arg(engineText);
}

} // namespace

ServerError::ServerError(const QByteArray &state, const QString &engineText)
    : DatabaseError(textOf(state, engineText))
    , m_state(state)
{}

bool ServerError::isAboutTables() const
{
    return m_state.startsWith("42");
}

ServerError serverError(const pg_result *result)
{
    const char *state = PQresultErrorField(result, PG_DIAG_SQLSTATE);
    const char *text = PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
    return {state ? state : "", QString::fromUtf8(text ? text : PQresultErrorMessage(result)).trimmed()};
}

QString connectFailureText(const pg_conn *connection, const QString &shownUrl)
{
    const QByteArray engineText = PQerrorMessage(connection);
    QString why;
    for (const Message &message : connectMessages) {
        if (why.isEmpty() && engineText.contains(message.state))
            why = u"：%1"_s.arg(QString::fromUtf16(message.text));
    }
    return u"无法连接数据库服务器 %1%2！（%3）"_s.arg(shownUrl, why,
                                                      QString::fromUtf8(engineText).simplified());
}

} // namespace ebtq::db
