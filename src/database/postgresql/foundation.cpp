#include "database/postgresql/foundation.h"

#include "database/postgresql/postgres_connection.h"

#include <QCryptographicHash>

namespace ebtq::db {

namespace {

/// A table with automatic keys continues after the highest key that was inserted explicitly.
constexpr char keyGuard[] = R"sql(
create or replace function ebtq.keep_key() returns trigger language plpgsql as $$
declare
    sequence text := pg_get_serial_sequence(tg_relid::regclass::text, tg_argv[0]);
    highest bigint;
    given bigint;
begin
    execute format('select max(%I) from %s', tg_argv[0], tg_relid::regclass) into highest;
    execute format('select case when is_called then last_value else 0 end from %s', sequence) into given;
    if highest > given then
        perform setval(sequence, highest);
    end if;
    return null;
end $$;
)sql";

QByteArray script()
{
    return QByteArray("create schema if not exists ebtq;\n"
                      "create extension if not exists citext schema ebtq;\n") +
           textFunctionsScript() + numberFunctionsScript() + dateFunctionsScript() + keyGuard;
}

struct Need
{
    const char *isMet; ///< a native statement that gives "t"
    const char16_t *otherwise;
};

constexpr Need needs[] = {
    {"select current_setting('server_version_num')::integer>=140000",
     u"服务器的版本太旧，需要 PostgreSQL 14 或更新的版本！"},
    {"select getdatabaseencoding()='UTF8'",
     u"数据库的编码不是 UTF8，请重新建立：createdb -T template0 -E UTF8 --locale=C.UTF-8 数据库名"},
    {"select lower(U&'\\00C9' collate \"default\")=U&'\\00E9'",
     u"数据库的区域设置不能区分字母大小写，请重新建立：createdb -T template0 -E UTF8 --locale=C.UTF-8 "
     u"数据库名"},
    {"select count(*)>0 from pg_available_extensions where name='citext'",
     u"服务器缺少 citext 扩展，请在服务器上安装 postgresql-contrib 软件包后重试！"},
    {"select count(*)>0 or has_database_privilege(current_database(),'create') from pg_extension"
     " where extname='citext'",
     u"没有建立 citext 扩展的权限，请由管理员在该数据库中执行：create extension citext"},
    {"select count(*)>0 or has_database_privilege(current_database(),'create') from pg_namespace"
     " where nspname='ebtq'",
     u"没有在该数据库中建立结构的权限，请由管理员执行：grant create on database 数据库名 to 用户名"},
};

void requireNeeds(PostgresConnection &connection)
{
    for (const Need &need : needs) {
        if (connection.queryNative(need.isMet).cell(0, 0) != "t")
            throw DatabaseError(QString::fromUtf16(need.otherwise));
    }
}

} // namespace

QByteArray missingFoundation(PostgresConnection &connection)
{
    const QByteArray wanted = script();
    const QByteArray mark = "ebtq " + QCryptographicHash::hash(wanted, QCryptographicHash::Sha1).toHex();
    const RowBlock present = connection.queryNative(
        "select obj_description(oid,'pg_namespace') from pg_namespace where nspname='ebtq'");
    if (present.rowCount() == 1 && present.value(0, 0).toByteArray() == mark)
        return {};
    requireNeeds(connection);
    return wanted + "comment on schema ebtq is '" + mark + "';\n";
}

} // namespace ebtq::db
