#include "shell/admin/commands.h"

#include "contracts/host_contracts.h"
#include "database/dialect/dialect.h"
#include "database/dialect/translator.h"
#include "database/schema/installer.h"
#include "database/schema/tables.h"
#include "host/demo/demo.h"
#include "host/setup.h"
#include "host/start/agency.h"
#include "shell/admin/attachments.h"
#include "shell/admin/command_line.h"
#include "shell/admin/orphans.h"
#include "shell/admin/output.h"
#include "shell/admin/password.h"
#include "shell/admin/staff_commands.h"
#include "shell/admin/statements.h"
#include "shell/admin/transfers.h"
#include "shell/admin/unseen_rows.h"
#include "shell/admin/utf8.h"

#include <QFile>

#include <cstdio>
#include <iostream>

namespace ebtq::admin {

namespace {

using db::Connection;

std::unique_ptr<Connection> openDatabase(const CommandLine &line,
                                         Connection::Missing missing = Connection::Missing::IsAnError)
{
    return Connection::open(line.requiredText(QStringLiteral("db")), missing);
}

QString textOr(const CommandLine &line, const QString &option, const QString &preset)
{
    return line.isSet(option) ? line.text(option) : preset;
}

host::Districts readDistricts(const QString &fileName)
{
    if (fileName.isEmpty())
        return {};
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("无法读取地区文件“%1”：%2").arg(fileName, file.errorString()));
    const auto text = decodeUtf8(file.readAll().toStdString());
    if (!text)
        throw Failure(QStringLiteral("地区文件“%1”不是 UTF-8 文本！").arg(fileName));
    return host::readDistrictLines(*text);
}

/// Asked for and judged before anything is written.
host::NewAgency readAgency(const CommandLine &line)
{
    host::NewAgency agency;
    agency.name = line.text(QStringLiteral("agency"));
    agency.department = textOr(line, QStringLiteral("department"), QStringLiteral("营业部"));
    agency.administrator = textOr(line, QStringLiteral("admin"), QStringLiteral("管理员"));
    host::requireName(QStringLiteral("部门名称"), agency.department);
    host::requireUserName(agency.administrator);
    agency.districts = readDistricts(line.text(QStringLiteral("districts")));
    if (line.isSet(QStringLiteral("standard-dictionaries")))
        agency.lists = host::readStandardLists(host::standardListsFile());
    agency.password = readPassword();
    host::requireAgency(agency);
    return agency;
}

/// Lists that the agency has lost or never had; those with rows stay as they are.
void upgrade(const CommandLine &line, Connection &connection, db::Foreign foreign)
{
    db::Transaction transaction(connection);
    (void)host::prepareDatabase(connection, foreign);
    if (line.isSet(QStringLiteral("standard-dictionaries"))) {
        const QStringList written =
            host::writeStandardLists(connection, host::readStandardLists(host::standardListsFile()));
        printLine(stdout, QStringLiteral("已写入 %1 个字典").arg(written.size()));
    }
    db::updateStatistics(connection);
    transaction.commit();
}

int initialise(const CommandLine &line)
{
    const auto connection = openDatabase(line, Connection::Missing::IsCreated);
    const db::Foreign foreign =
        line.isSet(QStringLiteral("take-over")) ? db::Foreign::IsTakenOver : db::Foreign::IsRefused;
    db::requireInstallable(*connection, foreign);
    QString administrator;
    if (host::hasUsers(*connection)) {
        upgrade(line, *connection, foreign);
    } else {
        const host::NewAgency agency = readAgency(line);
        host::createAgency(*connection, agency, foreign);
        administrator = agency.administrator.trimmed();
    }
    printLine(stdout,
              QStringLiteral("数据库结构已是版本 %1：%2").arg(db::schemaVersion).arg(connection->location()));
    if (!administrator.isEmpty())
        printLine(stdout, QStringLiteral("已创建用户“%1”，拥有全部权限").arg(administrator));
    return 0;
}

int writeDemo(const CommandLine &line)
{
    host::DemoOptions options;
    options.listings = line.count(QStringLiteral("listings"), options.listings);
    options.customers = line.count(QStringLiteral("customers"), options.customers);
    options.followUps = line.count(QStringLiteral("follow-ups"), options.followUps);
    options.seed = line.seed(QStringLiteral("seed"), options.seed);
    options.today = line.date(QStringLiteral("date"), options.today);
    const auto connection = openDatabase(line, Connection::Missing::IsCreated);
    host::writeDemo(*connection, options, [](const QString &what, int done, int total) {
        if (done == total)
            printLine(stdout, QStringLiteral("%1 %2 条").arg(what).arg(total));
    });
    printLine(stdout,
              QStringLiteral("示例数据已写入，用户“演示”，密码 demo：%1").arg(connection->location()));
    return 0;
}

int check(const CommandLine &line)
{
    const auto connection = openDatabase(line);
    const QStringList findings = db::checkSchema(*connection);
    for (const QString &finding : findings)
        printLine(stdout, finding);
    if (!findings.isEmpty())
        return 1;
    for (const QString &routine : db::foreignRoutines(*connection))
        printLine(stdout, QStringLiteral("提示：%1 不是本系统的").arg(routine));
    for (const QString &hint : countOrphans(*connection) + namesOfUnseenRows(*connection))
        printLine(stdout, QStringLiteral("提示：%1").arg(hint));
    printLine(stdout, QStringLiteral("数据库完好：%1").arg(connection->location()));
    return 0;
}

int translate(const CommandLine &line)
{
    const QString engine = line.requiredText(QStringLiteral("to"));
    if (engine != u"sqlite" && engine != u"postgresql")
        throw UsageError(QStringLiteral("选项 --to 应为 sqlite 或 postgresql"));
    const db::Dialect &dialect = engine == u"sqlite" ? db::sqliteDialect() : db::postgresDialect();
    const db::Translation translation = db::translate(line.argument(), dialect, db::schemaCatalog());
    for (const db::CountStatement &count : translation.counts)
        std::fprintf(stdout, "%s\n", count.sql.constData());
    std::fprintf(stdout, "%s\n", translation.sql.constData());
    return 0;
}

int runSql(const CommandLine &line)
{
    const bool batch = line.isSet(QStringLiteral("batch"));
    if (batch == line.hasArgument())
        throw UsageError(QStringLiteral("请给出一条语句，或用 --batch 从标准输入逐行读取语句"));
    const auto connection = openDatabase(line);
    db::requireCurrent(*connection);
    if (batch)
        runBatch(*connection, std::cin, stdout);
    else
        runStatement(*connection, line.argument(), stdout);
    return 0;
}

struct Command
{
    CommandDefinition definition;
    int (*run)(const CommandLine &line);
};

constexpr Command commands[] = {
    {{u"init",
      u"创建或升级数据库，并创建首个用户（密码取自环境变量 EBTQ_PASSWORD 或标准输入；"
      u"--standard-dictionaries：写入标准字典；--districts：地区，一行一个，下级缩进；"
      u"--take-over：写入其他程序的数据库）",
      u"db=文件或地址 agency=机构名称 department=首个部门 admin=用户名 districts=文件 "
      u"standard-dictionaries take-over",
      u""},
     initialise},
    {{u"demo", u"写入示例数据，文件不存在时先创建",
      u"db=文件或地址 listings=数量 customers=数量 follow-ups=数量 seed=整数 date=日期", u""},
     writeDemo},
    {{u"check", u"检查数据库的结构和完整性", u"db=文件或地址", u""}, check},
    {{u"translate", u"显示语句译成的数据库语言（sqlite 或 postgresql）", u"to=语言", u"语句"}, translate},
    {{u"sql", u"执行一条语句，或逐行执行标准输入中的语句（--batch）", u"db=文件或地址 batch", u"语句"},
     runSql},
    {{u"copy", u"把整个数据库复制到空的数据库中并核对", u"from=数据库 to=数据库", u""}, copy},
    {{u"backup", u"备份数据库文件，可在使用中进行（--replace：覆盖已有的备份）",
      u"db=文件 to=备份文件 replace", u""},
     backUp},
    {{u"restore", u"从备份恢复，原数据库改名保留", u"from=备份文件 db=文件", u""}, restore},
    {{u"attachments", u"附件和照片占用的空间；清除某日之前的已删除文件（按文件日期，先询问）",
      u"db=文件或地址 purge-deleted before=日期", u""},
     manageAttachments},
    {{u"user", u"列出用户；增加（同时成为员工，密码同 init）、停用或恢复一位",
      u"db=文件或地址 add=用户名 department=部门 deactivate=用户名 activate=用户名", u""},
     manageUsers},
    {{u"password", u"更改用户的密码（密码同 init；--temporary：下次登录时须修改）",
      u"db=文件或地址 user=用户名 temporary", u""},
     changePassword},
    {{u"right", u"列出或更改用户的权限（新建,删除,修改；不给出模块时为全部模块；--like：与另一用户相同）",
      u"db=文件或地址 user=用户名 module=模块 grant=权限 revoke=权限 like=用户名", u""},
     manageRights},
};

void printHelp(std::FILE *stream)
{
    printLine(stream, QStringLiteral("用法：ebtq-admin 命令 [选项]\n"));
    for (const auto &[definition, run] : commands) {
        QString usage = definition.name.toString();
        for (const QStringView option : definition.options.split(u' '))
            usage += QStringLiteral(" --%1").arg(option.toString().replace(u'=', u' '));
        if (!definition.argument.isEmpty())
            usage += QStringLiteral(" '%1'").arg(definition.argument);
        printLine(stream, QStringLiteral("  %1\n      %2").arg(usage, definition.description));
    }
}

QStringList decoded(std::span<const char *const> arguments)
{
    QStringList texts;
    for (const char *argument : arguments) {
        const auto text = decodeUtf8(argument);
        if (!text)
            throw UsageError(QStringLiteral("第 %1 个参数不是有效的 UTF-8 文本！").arg(texts.size() + 1));
        texts << *text;
    }
    return texts;
}

int dispatch(const QStringList &arguments)
{
    if (arguments.contains(QStringLiteral("--help")) || arguments.contains(QStringLiteral("-h"))) {
        printHelp(stdout);
        return 0;
    }
    if (arguments.isEmpty())
        throw UsageError(QStringLiteral("缺少命令"));
    for (const auto &[definition, run] : commands) {
        if (arguments.constFirst() == definition.name)
            return run(CommandLine(definition, arguments.mid(1)));
    }
    throw UsageError(QStringLiteral("没有命令“%1”").arg(arguments.constFirst()));
}

} // namespace

int runCommand(std::span<const char *const> arguments)
{
    try {
        const int status = dispatch(decoded(arguments));
        requireWritten(stdout);
        return status;
    } catch (const UsageError &error) {
        printLine(stderr, QStringLiteral("%1\n").arg(QString::fromUtf8(error.what())));
        printHelp(stderr);
        return 2;
    } catch (const std::exception &failure) {
        printLine(stderr, QString::fromUtf8(failure.what()));
        return 1;
    }
}

} // namespace ebtq::admin
