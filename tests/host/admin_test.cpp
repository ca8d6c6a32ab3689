#include "support/postgres_base.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace ebtq::test {

namespace {

struct Outcome
{
    int status;
    QString output;
    QString errors;
};

class AdminTest : public ::testing::Test
{
protected:
    static Outcome run(const QStringList &arguments, const QByteArray &input = {},
                       const QString &outputFile = {})
    {
        QProcess process;
        if (!outputFile.isEmpty())
            process.setStandardOutputFile(outputFile);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("EBTQ_PASSWORD"));
        process.setProcessEnvironment(environment);
        process.start(QString::fromUtf8(EBTQ_ADMIN_PROGRAM), arguments);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(120000)) << arguments.join(u' ').toStdString();
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << arguments.join(u' ').toStdString();
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    static bool isChinese(const QString &text) { return !text.isEmpty() && text.front().unicode() >= 0x4E00; }
    Outcome sql(const QString &statement)
    {
        return run({QStringLiteral("sql"), dbOption, m_file, statement});
    }
    QStringList batch(const QByteArray &lines)
    {
        const Outcome outcome =
            run({QStringLiteral("sql"), dbOption, m_file, QStringLiteral("--batch")}, lines);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.errors, QString());
        return outcome.output.split(u'\n', Qt::SkipEmptyParts);
    }
    void initialise()
    {
        const Outcome outcome =
            run({QStringLiteral("init"), dbOption, m_file, QStringLiteral("--admin"), QStringLiteral("甲")},
                "secret\n");
        ASSERT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    }

    const QString dbOption = QStringLiteral("--db");
    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("agency.db"));
};

} // namespace

TEST_F(AdminTest, InitWritesNothingWithoutAFirstUser)
{
    struct
    {
        QString name;
        QByteArray password;
    } const refused[] = {{QStringLiteral("甲"), "\n"},
                         {QStringLiteral("甲"), ""},
                         {QStringLiteral("O'Neil"), "x\n"},
                         {QStringLiteral("甲\n乙"), "x\n"},
                         {QStringLiteral(" "), "x\n"}};
    for (const auto &[name, password] : refused) {
        const Outcome outcome =
            run({QStringLiteral("init"), dbOption, m_file, QStringLiteral("--admin"), name}, password);
        EXPECT_EQ(outcome.status, 1) << name.toStdString();
        EXPECT_TRUE(isChinese(outcome.errors)) << outcome.errors.toStdString();
        EXPECT_EQ(outcome.output, QString());
        EXPECT_EQ(sql(QStringLiteral("select count(*) from host_users")).status, 1) << "a schema was written";
    }
}

TEST_F(AdminTest, InitMakesTheFirstUserOnce)
{
    initialise();
    EXPECT_EQ(sql(QStringLiteral("select username,isActive from host_users")).output,
              QStringLiteral("甲\t1\n"));
    const Outcome again = run(
        {QStringLiteral("init"), dbOption, m_file, QStringLiteral("--admin"), QStringLiteral("乙")}, "x\n");
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(sql(QStringLiteral("select count(*) from host_users")).output, QStringLiteral("1\n"));
    EXPECT_EQ(sql(QStringLiteral("select count(*) from host_rights where allowed=1")).output,
              QStringLiteral("21\n"));
}

TEST_F(AdminTest, SqlPrintsRowsAsEscapedLines)
{
    initialise();
    sql(QStringLiteral("insert into pubAttach(IDs,filename,createdate,contents) "
                       "values('a\tb','c\\d\ne',#2026-09-08#,null)"));
    sql(QStringLiteral(
        "insert into pubAttach(IDs,filesize,createdate) values('二',0.5,#2026-12-1 14:05:09#)"));
    const Outcome rows =
        sql(QStringLiteral("Select IDs,filename,createdate,filesize From pubAttach order by rowIndex"));
    EXPECT_EQ(rows.status, 0);
    EXPECT_EQ(rows.output,
              QStringLiteral("a\\tb\tc\\\\d\\ne\t2026-9-8\tNULL\n二\tNULL\t2026-12-1 14:05:09\t0.5\n"));
    const Outcome write = sql(QStringLiteral("update pubAttach set IDs='x'"));
    EXPECT_EQ(write.status, 0);
    EXPECT_EQ(write.output, QString());
}

TEST_F(AdminTest, SqlErrorsGoToTheErrorStream)
{
    initialise();
    for (const QString &statement :
         {QStringLiteral("select 无此列 from fyxx"), QStringLiteral("drop table fyxx"),
          QStringLiteral("selec"), QStringLiteral("select 1; delete from host_users"),
          QStringLiteral("select * from fyxx where 备注='it's'")}) {
        const Outcome outcome = sql(statement);
        EXPECT_EQ(outcome.status, 1) << statement.toStdString();
        EXPECT_EQ(outcome.output, QString());
        EXPECT_TRUE(isChinese(outcome.errors)) << outcome.errors.toStdString();
    }
    EXPECT_EQ(sql(QStringLiteral("select count(*) from host_users")).output, QStringLiteral("1\n"));
}

TEST_F(AdminTest, BatchAnswersEachLineAndGoesOnAfterErrors)
{
    initialise();
    const QStringList lines = batch("insert into pdmgy(雇员ID,姓名) values(1,'甲')\n"
                                    "\n   \t\n"
                                    "insert into pdmgy(雇员ID,姓名) values(2,null)\r\n"
                                    "select 雇员ID,姓名 from pdmgy order by 雇员ID\n"
                                    "select 姓名 from pdmgy where 雇员ID=9\n"
                                    "insert into pdmgy(雇员ID,姓名) values(2,'again')\n"
                                    "select '\xff\xfe'\n"
                                    "UPDATE pdmgy set 姓名='乙'\n"
                                    "select 姓名 from pdmgy where 雇员ID=2");
    ASSERT_EQ(lines.size(), 11) << lines.join(u'\n').toStdString();
    EXPECT_EQ(lines.mid(0, 6),
              (QStringList{QStringLiteral("-- ok 1"), QStringLiteral("-- ok 1"), QStringLiteral("1\t甲"),
                           QStringLiteral("2\tNULL"), QStringLiteral("-- ok 2"), QStringLiteral("-- ok 0")}));
    EXPECT_TRUE(lines.at(6).startsWith(u"-- error: "));
    EXPECT_TRUE(lines.at(7).startsWith(u"-- error: ") && lines.at(7).contains(u"UTF-8"));
    EXPECT_EQ(lines.mid(8),
              (QStringList{QStringLiteral("-- ok 2"), QStringLiteral("乙"), QStringLiteral("-- ok 1")}));
}

TEST_F(AdminTest, OutputThatIsNotWrittenIsAFailure)
{
    initialise();
    const QString fullDevice = QStringLiteral("/dev/full");
    const QString batchOption = QStringLiteral("--batch");
    const QStringList calls[] = {
        {QStringLiteral("sql"), dbOption, m_file, QStringLiteral("select username from host_users")},
        {QStringLiteral("sql"), dbOption, m_file, batchOption},
        {QStringLiteral("check"), dbOption, m_file},
        {QStringLiteral("translate"), QStringLiteral("--to"), QStringLiteral("sqlite"),
         QStringLiteral("select 1")},
        {QStringLiteral("--help")},
    };
    for (const QStringList &call : calls) {
        const Outcome outcome =
            run(call, "select 1\ninsert into pdmgy(雇员ID,姓名) values(1,'unanswered')\n", fullDevice);
        EXPECT_EQ(outcome.status, 1) << call.join(u' ').toStdString();
        EXPECT_TRUE(isChinese(outcome.errors)) << outcome.errors.toStdString();
    }
    EXPECT_EQ(sql(QStringLiteral("select count(*) from pdmgy")).output, QStringLiteral("0\n"));
}

TEST_F(AdminTest, ArgumentsAndPasswordsThatAreNoTextAreRefused)
{
    EXPECT_EQ(run({QStringLiteral("init"), dbOption, m_file}, "\xff\xfe\n").status, 1);
    initialise();
    // A process is started with text alone, so the shell makes the bytes.
    QProcess shell;
    shell.start(QStringLiteral("/bin/sh"),
                {QStringLiteral("-c"), QStringLiteral(R"sh(exec "$0" sql --db "$1" "$(printf "$2")")sh"),
                 QString::fromUtf8(EBTQ_ADMIN_PROGRAM), m_file,
                 QStringLiteral(R"(update host_users set username='\377\376')")});
    ASSERT_TRUE(shell.waitForFinished());
    EXPECT_EQ(shell.exitCode(), 2);
    const QString errors = QString::fromUtf8(shell.readAllStandardError());
    EXPECT_TRUE(isChinese(errors) && errors.contains(u"UTF-8")) << errors.toStdString();
    EXPECT_EQ(sql(QStringLiteral("select username from host_users")).output, QStringLiteral("甲\n"));
}

TEST_F(AdminTest, TranslateWritesForBothEngines)
{
    const QString statement = QStringLiteral("select top 1 楼层 & '/' & 总楼层 from fyxx");
    for (const QString &engine : {QStringLiteral("sqlite"), QStringLiteral("postgresql")}) {
        const Outcome outcome = run({QStringLiteral("translate"), QStringLiteral("--to"), engine, statement});
        EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
        EXPECT_TRUE(outcome.output.contains(u"limit", Qt::CaseInsensitive)) << outcome.output.toStdString();
    }
    const Outcome unknown = run({QStringLiteral("translate"), QStringLiteral("--to"),
                                 QStringLiteral("sqlite"), QStringLiteral("select 1 from 无此表")});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.output, QString());
    EXPECT_TRUE(unknown.errors.contains(u"无此表"));
}

TEST_F(AdminTest, CallsThatAreNotUnderstoodShowTheHelp)
{
    const QStringList calls[] = {
        {},
        {QStringLiteral("drop")},
        {QStringLiteral("sql")},
        {QStringLiteral("sql"), dbOption, m_file},
        {QStringLiteral("sql"), dbOption, m_file, QStringLiteral("--batch"), QStringLiteral("select 1")},
        {QStringLiteral("sql"), dbOption, m_file, QStringLiteral("select 1"), QStringLiteral("select 2")},
        {QStringLiteral("sql"), QStringLiteral("--password"), QStringLiteral("x")},
        {QStringLiteral("sql"), dbOption},
        {QStringLiteral("sql"), dbOption, m_file, QStringLiteral("--batch=1")},
        {QStringLiteral("translate"), QStringLiteral("select 1")},
        {QStringLiteral("translate"), QStringLiteral("--to"), QStringLiteral("other"),
         QStringLiteral("select 1")},
        {QStringLiteral("demo"), dbOption, m_file, QStringLiteral("--listings"), QStringLiteral("-3")},
        {QStringLiteral("demo"), dbOption, m_file, QStringLiteral("--seed"), QStringLiteral("-1")},
        {QStringLiteral("demo"), dbOption, m_file, QStringLiteral("--seed"),
         QStringLiteral("18446744073709551616")},
        {QStringLiteral("demo"), dbOption, m_file, QStringLiteral("--date"), QStringLiteral("2026-13-01")},
    };
    for (const QStringList &call : calls) {
        const Outcome outcome = run(call);
        EXPECT_EQ(outcome.status, 2) << call.join(u' ').toStdString();
        EXPECT_TRUE(isChinese(outcome.errors)) << outcome.errors.toStdString();
        EXPECT_TRUE(outcome.errors.contains(u"ebtq-admin")) << call.join(u' ').toStdString();
    }
    EXPECT_TRUE(run({QStringLiteral("check"), dbOption}).errors.startsWith(u"选项 --db 后缺少文件"));
    EXPECT_TRUE(run({QStringLiteral("check"), QStringLiteral("--nix")}).errors.startsWith(u"没有选项“nix”"));
    EXPECT_FALSE(QFile::exists(m_file));
    EXPECT_EQ(run({QStringLiteral("--help")}).status, 0);
}

TEST_F(AdminTest, FilesThatAreNoDatabaseAreNamed)
{
    QFile file(m_folder.filePath(QStringLiteral("text.db")));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("no database at all");
    file.close();
    for (const QString &path : {m_file, file.fileName()}) {
        for (const QString &command : {QStringLiteral("check"), QStringLiteral("sql")}) {
            QStringList call{command, dbOption, path};
            if (command == u"sql")
                call << QStringLiteral("select 1");
            const Outcome outcome = run(call);
            EXPECT_EQ(outcome.status, 1);
            EXPECT_TRUE(isChinese(outcome.errors)) << outcome.errors.toStdString();
        }
    }
}

TEST_F(AdminTest, DemoFillsANewFileOnceAndCheckIsContent)
{
    const QStringList call{QStringLiteral("demo"),
                           dbOption,
                           m_file,
                           QStringLiteral("--listings"),
                           QStringLiteral("30"),
                           QStringLiteral("--customers"),
                           QStringLiteral("5"),
                           QStringLiteral("--follow-ups"),
                           QStringLiteral("9"),
                           QStringLiteral("--seed"),
                           QStringLiteral("18446744073709551615"),
                           QStringLiteral("--date"),
                           QStringLiteral("2026-11-24")};
    EXPECT_EQ(run(call).status, 0);
    EXPECT_EQ(run(call).status, 1);
    EXPECT_EQ(sql(QStringLiteral("select count(*) from fyxx")).output, QStringLiteral("30\n"));
    const Outcome check = run({QStringLiteral("check"), dbOption, m_file});
    EXPECT_EQ(check.status, 0) << check.output.toStdString();
    EXPECT_FALSE(check.output.contains(u"提示")) << check.output.toStdString();
}

TEST_F(AdminTest, CheckCountsOrphansAndFailsOnAnOldSchema)
{
    initialise();
    sql(QStringLiteral("insert into fygj(跟进ID,房源ID) values('1','nobody')"));
    const Outcome orphans = run({QStringLiteral("check"), dbOption, m_file});
    EXPECT_EQ(orphans.status, 0);
    EXPECT_TRUE(orphans.output.contains(u"fygj.房源ID 有 1 行")) << orphans.output.toStdString();
    sql(QStringLiteral("update host_schema set version=0"));
    const Outcome old = run({QStringLiteral("check"), dbOption, m_file});
    EXPECT_EQ(old.status, 1);
    EXPECT_TRUE(old.output.contains(u"版本")) << old.output.toStdString();
}

TEST_F(AdminTest, CopiesBacksUpAndRestores)
{
    initialise();
    struct
    {
        QString call; ///< %1 the database, %2 another
        int status;
        QString says;
    } const steps[] = {
        {QStringLiteral("copy --from %1 --to %2"), 0, QStringLiteral("host_users 1/1\n")},
        {QStringLiteral("copy --from %1 --to %2"), 1, QStringLiteral("已有数据")},
        {QStringLiteral("backup --db %1 --to %2.bak"), 0, QStringLiteral("核对无误")},
        {QStringLiteral("backup --db %1 --to %2.bak"), 1, QStringLiteral("--replace")},
        {QStringLiteral("backup --db %1 --to %2.bak --replace"), 0, QStringLiteral("核对无误")},
        {QStringLiteral("backup --db postgresql://h/b --to %2"), 1, QStringLiteral("docs/backup.md")},
        {QStringLiteral("restore --from %2.bak --db postgresql://h/b"), 1, QStringLiteral("docs/backup.md")},
        {QStringLiteral("restore --from %2.bak --db %2"), 0, QStringLiteral("原数据库保留为")},
        {QStringLiteral("restore --from %2 --db %1"), 0, QStringLiteral("只核对了结构")},
    };
    const QString other = m_folder.filePath(QStringLiteral("other"));
    for (const auto &[call, status, says] : steps) {
        QString told = call;
        told.replace(QStringLiteral("%1"), m_file).replace(QStringLiteral("%2"), other);
        const Outcome outcome = run(told.split(u' '));
        EXPECT_EQ(outcome.status, status) << call.toStdString();
        EXPECT_TRUE((outcome.output + outcome.errors).contains(says)) << outcome.errors.toStdString();
    }
    EXPECT_EQ(sql(QStringLiteral("select username from host_users")).output, QStringLiteral("甲\n"));
}

/// The limit on a file's size stands for a full disk: writing fails in the middle.
TEST_F(AdminTest, ADiskThatFillsLeavesNoFileBehind)
{
    initialise();
    const QStringList before = QDir(m_folder.path()).entryList(QDir::Files);
    for (const QString &call :
         {QStringLiteral("copy --from %1 --to %2"), QStringLiteral("backup --db %1 --to %2")}) {
        QProcess shell;
        const QString command = call.arg(m_file, m_folder.filePath(QStringLiteral("new")));
        shell.start(QStringLiteral("/bin/sh"),
                    {QStringLiteral("-c"), QStringLiteral("trap '' XFSZ; ulimit -f 64; exec %1 %2")
                                               .arg(QString::fromUtf8(EBTQ_ADMIN_PROGRAM), command)});
        ASSERT_TRUE(shell.waitForFinished());
        EXPECT_EQ(shell.exitCode(), 1) << command.toStdString();
        EXPECT_TRUE(isChinese(QString::fromUtf8(shell.readAllStandardError())));
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), before) << command.toStdString();
    }
}

TEST_F(AdminTest, WorksOnAServerAlike)
{
    const PostgresBase base;
    const PostgresBase other;
    const QString secret = postgresServer().section(u':', 2).section(u'@', 0, 0);
    const QString url = base.url();
    const QStringList fill{QStringLiteral("demo"), dbOption, m_file, QStringLiteral("--listings"),
                           QStringLiteral("40")};
    const QStringList copy{QStringLiteral("copy"), QStringLiteral("--from"), m_file, QStringLiteral("--to"),
                           url};
    for (const QStringList &arguments :
         {fill, copy, {QStringLiteral("check"), dbOption, url}, {QStringLiteral("init"), dbOption, url}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
        EXPECT_FALSE((outcome.output + outcome.errors).contains(secret)) << outcome.output.toStdString();
    }
    const QByteArray lines = "select * from fyxx order by 房源编号\n"
                             "select * from fygj order by 跟进ID\n"
                             "select ID,类型,代码,名称 from pdmsjzd order by ID\n"
                             "insert into pdmsjzd(类型,名称)values('k','n')\n"
                             "select ID from pdmsjzd where 类型='K'\n"
                             "update fyxx set 总面积=总面积/3,备注='\\' & 房源编号\n"
                             "select 总面积,备注 from fyxx order by 总面积 desc,房源编号\n"
                             "select 1 from nothing\n";
    const QStringList expected = batch(lines);
    m_file = url;
    EXPECT_EQ(batch(lines).join(u'\n').toStdString(), expected.join(u'\n').toStdString());
    m_file = other.url();
    EXPECT_FALSE(sql(QStringLiteral("select 1 from fyxx")).errors.contains(secret));
    initialise();
    EXPECT_EQ(sql(QStringLiteral("select username from host_users")).output, QStringLiteral("甲\n"));
}

} // namespace ebtq::test
