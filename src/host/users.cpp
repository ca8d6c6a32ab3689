#include "host/users.h"

#include "host/host_parameters.h"

#include <QUuid>

#include <algorithm>

#include <sodium.h>
#include <syslog.h>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

constexpr int passwordGroup = 12;
const QString temporaryKey = u"temporarypassword"_s;
constexpr auto cannotHash = u"系统内存不足，无法处理密码！";

void startSodium()
{
    if (sodium_init() < 0)
        throw Failure(u"加密组件无法启动！"_s);
}

SqlText userNamed(QStringView columns, const QString &name)
{
    return SqlText(u"select "_s) + columns + u" from host_users where username='"_s + typed(name) + u"'"_s;
}

QByteArray bytes(std::string_view cell)
{
    return {cell.data(), static_cast<qsizetype>(cell.size())};
}

bool verifies(const QByteArray &hash, const QString &password)
{
    const QByteArray text = password.toUtf8();
    return crypto_pwhash_str_verify(hash.constData(), text.constData(),
                                    static_cast<unsigned long long>(text.size())) == 0;
}

/// What an unknown name is checked against, so that it takes as long as a known one: the hash of bytes that
/// were thrown away, at the usual cost.
constexpr char hashOfNobody[] =
    "$argon2id$v=19$m=65536,t=2,p=1$owPC5FY06NIwqlCIbaowaw$HlOlC4m0ngLGARBaPbexTObqA37cafMJ8iZy3z7BMbU";

QString departmentOf(db::Connection &connection, const QString &userId)
{
    const RowBlock rows = connection.query(
        SqlText(u"select mtname from su_usertype where mtID in(select UserTypeID from su_membership "
                "where userID='"_s) +
        typed(userId) + u"') order by mtcode"_s);
    return rows.rowCount() == 0 ? QString() : rows.value(0, 0).toString();
}

} // namespace

PasswordCost PasswordCost::interactive()
{
    return {crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE};
}

PasswordCost PasswordCost::lowest()
{
    return {crypto_pwhash_OPSLIMIT_MIN, crypto_pwhash_MEMLIMIT_MIN};
}

void requireName(const QString &what, const QString &name)
{
    constexpr qsizetype longest = 50;
    const QString kept = name.trimmed();
    if (kept.isEmpty())
        throw Failure(u"%1不能为空，请输入！"_s.arg(what));
    if (kept.size() > longest)
        throw Failure(u"%1不能超过 %2 个字符，请缩短！"_s.arg(what).arg(longest));
    if (kept.contains(u'\''))
        throw Failure(u"%1不能含有单引号，请换一个！"_s.arg(what));
    if (std::any_of(kept.begin(), kept.end(), [](QChar c) { return c.category() == QChar::Other_Control; }))
        throw Failure(u"%1不能含有换行、制表符等控制字符，请换一个！"_s.arg(what));
}

void requireUserName(const QString &name)
{
    requireName(u"用户名"_s, name);
}

void requirePassword(const QString &password)
{
    if (password.size() < shortestPassword)
        throw Failure(u"密码至少要有 %1 个字符，请重新输入！"_s.arg(shortestPassword));
}

QByteArray hashPassword(const QString &password, PasswordCost cost)
{
    startSodium();
    const QByteArray text = password.toUtf8();
    char hash[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str(hash, text.constData(), static_cast<unsigned long long>(text.size()),
                          cost.operations, cost.memory) != 0)
        throw Failure(QString::fromUtf16(cannotHash));
    return hash;
}

void writeSystemLog(const QString &line)
{
    syslog(LOG_AUTHPRIV | LOG_WARNING, "%s", line.toUtf8().constData());
}

User signIn(db::Connection &connection, const QString &name, const QString &password, const SignInLog &log)
{
    startSodium();
    // An apostrophe can stand in no user's name, and a refused statement would say more than a wrong name
    // does.
    const bool askable = !name.contains(u'\'');
    const RowBlock rows =
        connection.query(userNamed(u"userID,username,password,isActive", askable ? name : QString()));
    const bool known = rows.rowCount() == 1 && rows.value(0, 3).toInt() == 1;
    const bool matches = verifies(known ? bytes(rows.cell(0, 2)) : QByteArray(hashOfNobody), password);
    if (!known || !matches) {
        const QString who =
            rows.rowCount() == 1 ? u'“' + rows.value(0, 1).toString() + u'”' : u"（未知用户）"_s;
        log(u"房源管理登录失败：用户%1，数据库 %2"_s.arg(who, connection.location()));
        throw WrongPassword(u"用户名或密码不正确，请重新输入！"_s);
    }
    const QString id = rows.value(0, 0).toString();
    return {id, rows.value(0, 1).toString(), departmentOf(connection, id),
            parameterText(connection, id, passwordGroup, temporaryKey) == u"1"};
}

QString createUser(db::Connection &connection, const NewUser &user, PasswordCost cost)
{
    requireUserName(user.name);
    requirePassword(user.password);
    const QString name = user.name.trimmed();
    const QByteArray hash = hashPassword(user.password, cost);
    db::Transaction transaction(connection);
    if (connection.query(userNamed(u"userID", name)).rowCount() != 0)
        throw Failure(u"用户名“%1”已存在，请换一个！"_s.arg(name));
    const QString id = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    connection.execute(SqlText(u"insert into host_users(userID,username,password,isActive) values('"_s) +
                       typed(id) + u"','"_s + typed(name) + u"','"_s + typed(QString::fromLatin1(hash)) +
                       u"',1)"_s);
    if (user.departmentId != 0) {
        connection.execute(SqlText(u"insert into su_membership(userID,UserTypeID,username) values('"_s) +
                           typed(id) + u"',%1,'"_s.arg(user.departmentId) + typed(name) + u"')"_s);
    }
    transaction.commit();
    return id;
}

void setPassword(db::Connection &connection, const QString &name, const QString &password, PasswordCost cost,
                 PasswordUse use)
{
    requirePassword(password);
    const QByteArray hash = hashPassword(password, cost);
    db::Transaction transaction(connection);
    const RowBlock rows = connection.query(userNamed(u"userID", name));
    if (rows.rowCount() == 0)
        throw Failure(u"没有名为“%1”的用户！"_s.arg(name));
    const QString id = rows.value(0, 0).toString();
    connection.execute(SqlText(u"update host_users set password='"_s) + typed(QString::fromLatin1(hash)) +
                       u"' where userID='"_s + typed(id) + u"'"_s);
    setParameter(connection, id, passwordGroup, temporaryKey,
                 use == PasswordUse::UntilSignIn ? u"1"_s : u"0"_s);
    transaction.commit();
}

void changeOwnPassword(db::Connection &connection, const QString &name, const QString &present,
                       const QString &wanted)
{
    (void)signIn(connection, name, present);
    if (wanted == present)
        throw Failure(u"新密码与现在的密码相同，请换一个！"_s);
    setPassword(connection, name, wanted);
}

} // namespace ebtq::host
