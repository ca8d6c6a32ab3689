#include "database/schema/installer.h"
#include "support/postgres_base.h"

#include <QDir>
#include <QElapsedTimer>
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
    /// `call` has its arguments between blanks and @ for the database; those of `further` may hold blanks.
    Outcome run(const QString &call, const QStringList &further = {}, const QByteArray &input = {},
                const QString &outputFile = {}) const
    {
        QStringList arguments = call.split(u' ', Qt::SkipEmptyParts).replaceInStrings(u"@"_qs, m_file);
        arguments += further;
        QProcess process;
        if (!outputFile.isEmpty())
            process.setStandardOutputFile(outputFile);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"EBTQ_PASSWORD"_qs);
        process.setProcessEnvironment(environment);
        process.start(u"" EBTQ_ADMIN_PROGRAM ""_qs, arguments);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(120000)) << arguments.join(u' ').toStdString();
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << arguments.join(u' ').toStdString();
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    /// What the shell makes of a command in which $0 is the program and $1 the database.
    [[nodiscard]] Outcome shell(const QString &command, const QString &argument) const
    {
        QProcess shell;
        shell.start(u"/bin/sh"_qs, {u"-c"_qs, command, u"" EBTQ_ADMIN_PROGRAM ""_qs, m_file, argument});
        EXPECT_TRUE(shell.waitForFinished());
        return {shell.exitCode(), {}, QString::fromUtf8(shell.readAllStandardError())};
    }
    static bool isChinese(const QString &text) { return !text.isEmpty() && text.front().unicode() >= 0x4E00; }
    static void expectRefusal(const Outcome &outcome, int status, const QString &call)
    {
        EXPECT_EQ(outcome.status, status) << call.toStdString();
        EXPECT_TRUE(isChinese(outcome.errors)) << call.toStdString() << ": " << outcome.errors.toStdString();
        EXPECT_EQ(outcome.output, QString()) << call.toStdString();
    }
    Outcome sql(const QString &statement) const { return run(u"sql --db @"_qs, {statement}); }
    [[nodiscard]] QStringList batch(const QByteArray &lines) const
    {
        const Outcome outcome = run(u"sql --db @ --batch"_qs, {}, lines);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.errors, QString());
        return outcome.output.split(u'\n', Qt::SkipEmptyParts);
    }
    void initialise() const
    {
        const Outcome outcome = run(u"init --db @ --admin 甲"_qs, {}, "secret-1\n");
        ASSERT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(u"agency.db"_qs);
};

} // namespace

TEST_F(AdminTest, InitMakesTheFirstUserOnceAndWritesNothingWithoutOne)
{
    const std::pair<QString, QByteArray> refused[] = {{u"甲"_qs, "1234567\n"}, {u"O'Neil"_qs, "secret-1\n"}};
    for (const auto &[name, password] : refused) {
        expectRefusal(run(u"init --db @ --admin"_qs, {name}, password), 1, name);
        expectRefusal(sql(u"select count(*) from host_users"_qs), 1, u"a schema was written"_qs);
    }
    EXPECT_EQ(run(u"init --db @"_qs, {}, "\xff\xfe\n").status, 1);
    initialise();
    EXPECT_EQ(run(u"init --db @ --admin 乙"_qs, {}, "x\n").status, 0);
    EXPECT_EQ(sql(u"select username,isActive from host_users"_qs).output, u"甲\t1\n"_qs);
}

TEST_F(AdminTest, InitMakesAnAgencyWithoutAScreen)
{
    QFile districts(m_folder.filePath(u"districts.txt"_qs));
    ASSERT_TRUE(districts.open(QIODevice::WriteOnly));
    districts.write("云泽市\n  望澜区\n    柳岸\n");
    districts.close();
    const QString call =
        u"init --db @ --agency 望澜房产 --department 一部 --standard-dictionaries --districts "_qs;
    expectRefusal(run(call + u"none.txt"_qs, {}, "secret-1\n"), 1, call);
    EXPECT_EQ(run(call + districts.fileName(), {}, "secret-1\n").status, 0);
    const QString facts =
        u"select A.username & C.mtname & 姓名 & 地区 from (((host_users A left join su_membership B "
        "on A.userID=B.userID) left join su_usertype C on B.UserTypeID=C.mtID) left join pdmgy D "
        "on A.username=D.姓名) left join pdmdq E on E.是否明细=1"_qs;
    EXPECT_EQ(sql(facts).output, u"管理员一部管理员柳岸\n"_qs);
    sql(u"delete from pdmfx"_qs);
    const Outcome again = run(u"init --db @ --standard-dictionaries"_qs);
    EXPECT_TRUE(again.output.contains(u"已写入 1 个字典")) << again.output.toStdString();
}

TEST_F(AdminTest, AKilledUpgradeLeavesTheOldStateOrTheNewOne)
{
    constexpr int moments = 30;
    initialise();
    db::Connection::open(m_file)->executeNative("update host_schema set version=1; drop table host_numbers; "
                                                "drop index ix_fyxx_number; delete from host_modules");
    const QString old = m_folder.filePath(u"old.db"_qs);
    ASSERT_TRUE(QFile::rename(m_file, old));
    qint64 wholeTime = 0;
    for (int moment = moments; moment >= 0; --moment) { // the first one is let run, to be timed
        ASSERT_TRUE(QFile::copy(old, m_file));
        QElapsedTimer timer;
        timer.start();
        QProcess process;
        process.start(u"" EBTQ_ADMIN_PROGRAM ""_qs, {u"init"_qs, u"--db"_qs, m_file});
        if (process.waitForFinished(moment == moments ? 60000
                                                      : static_cast<int>(wholeTime * moment / moments)))
            wholeTime = qMax(wholeTime, timer.elapsed());
        process.kill();
        process.waitForFinished();
        const auto connection = db::Connection::open(m_file);
        const int version = db::Identity::of(*connection).version;
        const auto modules = connection->query(u"select moduleID from host_modules"_qs).rowCount();
        if (version == 1)
            EXPECT_TRUE(modules == 0 && !connection->catalog().table(u"host_numbers")) << moment;
        else
            EXPECT_TRUE(modules == 7 && db::checkSchema(*connection).isEmpty()) << moment;
        for (const QString &name : QDir(m_folder.path()).entryList({u"agency.db*"_qs}))
            QFile::remove(m_folder.filePath(name));
    }
}

TEST_F(AdminTest, UsersPasswordsAndRightsAreKeptWithoutAScreen)
{
    initialise();
    EXPECT_EQ(run(u"user --db @ --add 乙 --department 二部"_qs, {}, "secret-2\n").output,
              u"乙\t二部\t在用\n甲\t营业部\t管理员\n"_qs);
    EXPECT_EQ(sql(u"select 姓名 from pdmgy where 雇员ID=2"_qs).output, u"乙\n"_qs);
    EXPECT_EQ(run(u"password --db @ --user 乙"_qs, {}, "secret-3\n").status, 0);
    const QString rights = u"right --db @ --user 乙"_qs;
    EXPECT_TRUE(run(rights + u" --module 房源信息 --grant 新建,修改"_qs)
                    .output.startsWith(u"房源信息\t新建,修改\n客源信息\t\n"));
    EXPECT_TRUE(
        run(rights + u" --like 甲"_qs).output.startsWith(u"房源信息\t新建,删除,修改\n客源信息\t新建"));
    EXPECT_TRUE(
        run(rights + u" --revoke 删除"_qs).output.startsWith(u"房源信息\t新建,修改\n客源信息\t新建,修改"));
    const std::pair<QString, int> refused[] = {
        {u"user --db @ --deactivate 甲"_qs, 1},      {u"right --db @ --user 甲 --revoke 修改"_qs, 1},
        {u"right --db @ --user 甲 --like 乙"_qs, 1}, {u"user --db @ --add 甲"_qs, 1},
        {u"user --db @ --add O'Neil"_qs, 1},         {u"password --db @ --user 丙"_qs, 1},
        {rights + u" --grant 全部"_qs, 2},           {rights + u" --module 无 --grant 新建"_qs, 2},
        {rights + u" --like 甲 --grant 新建"_qs, 2}};
    for (const auto &[call, status] : refused)
        expectRefusal(run(call, {}, "secret-4\n"), status, call);
    EXPECT_EQ(run(u"user --db @ --deactivate 乙"_qs).output, u"乙\t二部\t停用\n甲\t营业部\t管理员\n"_qs);
}

TEST_F(AdminTest, SomebodyElsesFileIsTakenOverWhenAsked)
{
    db::Connection::open(m_file, db::Connection::Missing::IsCreated)
        ->executeNative("create table notes(text text); create view 报表 as select 1 as x");
    EXPECT_EQ(run(u"init --db @ --take-over"_qs, {}, "secret-1\n").status, 0);
    const Outcome checked = run(u"check --db @"_qs);
    EXPECT_EQ(checked.status, 0);
    EXPECT_TRUE(checked.output.contains(u"视图 报表")) << checked.output.toStdString();
}

TEST_F(AdminTest, SqlPrintsRowsAsEscapedLines)
{
    initialise();
    sql(u"insert into pubAttach(IDs,filename,createdate,contents) values('a\tb','c\\d\ne',#2026-09-08#,null)"_qs);
    sql(u"insert into pubAttach(IDs,filesize,createdate) values('二',0.5,#2026-12-1 14:05:09#)"_qs);
    const Outcome rows = sql(u"Select IDs,filename,createdate,filesize From pubAttach order by rowIndex"_qs);
    EXPECT_EQ(rows.status, 0);
    EXPECT_EQ(rows.output, u"a\\tb\tc\\\\d\\ne\t2026-9-8\tNULL\n二\tNULL\t2026-12-1 14:05:09\t0.5\n"_qs);
}

TEST_F(AdminTest, FailuresGoToTheErrorStream)
{
    initialise();
    for (const QString &statement :
         {u"select 无此列 from fyxx"_qs, u"drop table fyxx"_qs, u"select 1; delete from host_users"_qs,
          u"select * from fyxx where 备注='it's'"_qs})
        expectRefusal(sql(statement), 1, statement);
    EXPECT_EQ(sql(u"select count(*) from host_users"_qs).output, u"1\n"_qs);
    expectRefusal(run(u"translate --to sqlite"_qs, {u"select 1 from 无此表"_qs}), 1, u"no table"_qs);
    for (const QString &engine : {u"sqlite"_qs, u"postgresql"_qs}) {
        const Outcome outcome = run(u"translate --to "_qs + engine, {u"select top 1 楼层 from fyxx"_qs});
        EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
        EXPECT_TRUE(outcome.output.contains(u"limit", Qt::CaseInsensitive)) << outcome.output.toStdString();
    }
}

TEST_F(AdminTest, BatchAnswersEachLineAndGoesOnAfterErrors)
{
    initialise();
    const QStringList lines = batch("insert into pdmcq(产权ID,产权名称) values(1,'甲')\n"
                                    "\n   \t\n"
                                    "insert into pdmcq(产权ID,产权名称) values(2,null)\r\n"
                                    "select 产权ID,产权名称 from pdmcq order by 产权ID\n"
                                    "select 产权名称 from pdmcq where 产权ID=9\n"
                                    "insert into pdmcq(产权ID,产权名称) values(2,'again')\n"
                                    "select '\xff\xfe'\n"
                                    "UPDATE pdmcq set 产权名称='乙'\n"
                                    "select 产权名称 from pdmcq where 产权ID=2");
    ASSERT_EQ(lines.size(), 11) << lines.join(u'\n').toStdString();
    EXPECT_EQ(lines.mid(0, 6).join(u';'), u"-- ok 1;-- ok 1;1\t甲;2\tNULL;-- ok 2;-- ok 0"_qs);
    EXPECT_TRUE(lines.at(6).startsWith(u"-- error: "));
    EXPECT_TRUE(lines.at(7).startsWith(u"-- error: ") && lines.at(7).contains(u"UTF-8"));
    EXPECT_EQ(lines.mid(8).join(u';'), u"-- ok 2;乙;-- ok 1"_qs);
}

TEST_F(AdminTest, OutputThatIsNotWrittenIsAFailure)
{
    initialise();
    const std::pair<QString, QStringList> calls[] = {
        {u"sql --db @"_qs, {u"select username from host_users"_qs}},
        {u"sql --db @ --batch"_qs, {}},
        {u"check --db @"_qs, {}},
        {u"translate --to sqlite"_qs, {u"select 1"_qs}},
        {u"--help"_qs, {}},
    };
    for (const auto &[call, further] : calls)
        expectRefusal(run(call, further,
                          "select 1\ninsert into pdmcq(产权ID,产权名称) values(1,'unanswered')\n",
                          u"/dev/full"_qs),
                      1, call);
    EXPECT_EQ(sql(u"select count(*) from pdmcq"_qs).output, u"0\n"_qs);
}

TEST_F(AdminTest, AnArgumentThatIsNoTextIsRefused)
{
    initialise();
    // A process is started with text alone, so the shell makes the bytes.
    const Outcome outcome = shell(uR"sh(exec "$0" sql --db "$1" "$(printf "$2")")sh"_qs,
                                  uR"(update host_users set username='\377\376')"_qs);
    expectRefusal(outcome, 2, {});
    EXPECT_TRUE(outcome.errors.contains(u"UTF-8")) << outcome.errors.toStdString();
    EXPECT_EQ(sql(u"select username from host_users"_qs).output, u"甲\n"_qs);
}

TEST_F(AdminTest, CallsThatAreNotUnderstoodShowTheHelp)
{
    for (const QString &call :
         {u""_qs, u"drop"_qs, u"sql"_qs, u"sql --db @"_qs, u"sql --db @ --batch x"_qs, u"sql --db @ x y"_qs,
          u"sql --password x"_qs, u"sql --db"_qs, u"sql --db @ --batch=1"_qs, u"translate x"_qs,
          u"translate --to other x"_qs, u"demo --db @ --listings -3"_qs, u"demo --db @ --seed -1"_qs,
          u"demo --db @ --seed 18446744073709551616"_qs, u"demo --db @ --date 2026-13-01"_qs}) {
        const Outcome outcome = run(call);
        expectRefusal(outcome, 2, call);
        EXPECT_TRUE(outcome.errors.contains(u"ebtq-admin")) << call.toStdString();
    }
    EXPECT_TRUE(run(u"check --db"_qs).errors.startsWith(u"选项 --db 后缺少文件"));
    EXPECT_TRUE(run(u"check --nix"_qs).errors.startsWith(u"没有选项“nix”"));
    EXPECT_FALSE(QFile::exists(m_file));
    EXPECT_EQ(run(u"--help"_qs).status, 0);
}

TEST_F(AdminTest, DemoFillsANewFileOnceAndCheckIsContent)
{
    const QString call =
        u"demo --db @ --listings 30 --customers 5 --follow-ups 9 --seed 18446744073709551615 "
        u"--date 2026-11-24"_qs;
    EXPECT_EQ(run(call).status, 0);
    EXPECT_EQ(run(call).status, 1);
    EXPECT_EQ(sql(u"select count(*) from fyxx"_qs).output, u"30\n"_qs) << "one in use is left alone";
    const Outcome check = run(u"check --db @"_qs);
    EXPECT_EQ(check.status, 0) << check.output.toStdString();
    EXPECT_FALSE(check.output.contains(u"提示")) << check.output.toStdString();
}

TEST_F(AdminTest, CheckNamesWhatIsNotFoundAndRefusesWhatIsNoDatabase)
{
    initialise();
    sql(u"insert into fygj(跟进ID,房源ID) values('1','nobody')"_qs);
    for (const int id : {1, 2})
        sql(u"insert into pdmlpzd(楼盘ID,楼盘编号,楼盘名称,地区ID) values(%1,'L1','孤楼%1',77)"_qs.arg(id));
    sql(u"insert into pdmdq(地区ID,编码,地区,级次) values(1,'0901','孤区',2)"_qs);
    const Outcome orphans = run(u"check --db @"_qs);
    EXPECT_EQ(orphans.status, 0);
    for (const QString &hint : {u"地区“0901 孤区”的上级编码“09”不存在"_qs, u"fygj.房源ID 有 1 行"_qs,
                                u"楼盘“L1 孤楼2”的地区不存在"_qs, u"楼盘编号“L1”重复 2 次"_qs})
        EXPECT_TRUE(orphans.output.contains(hint)) << orphans.output.toStdString();
    expectRefusal(run(u"check --db @.none"_qs), 1, u"no file"_qs);
}

TEST_F(AdminTest, CopiesBacksUpAndRestores)
{
    initialise();
    const std::tuple<QString, int, QString> steps[] = {
        {u"copy --from @ --to @.2"_qs, 0, u"host_users 1/1\n"_qs},
        {u"copy --from @ --to @.2"_qs, 1, u"已有数据"_qs},
        {u"backup --db @ --to @.bak"_qs, 0, u"核对无误"_qs},
        {u"backup --db @ --to @.bak"_qs, 1, u"--replace"_qs},
        {u"backup --db @ --to @.bak --replace"_qs, 0, u"核对无误"_qs},
        {u"backup --db postgresql://h/b --to @.2"_qs, 1, u"docs/backup.md"_qs},
        {u"restore --from @.bak --db postgresql://h/b"_qs, 1, u"docs/backup.md"_qs},
        {u"restore --from @.bak --db @.2"_qs, 0, u"原数据库保留为"_qs},
        {u"restore --from @.2 --db @"_qs, 0, u"只核对了结构"_qs},
    };
    for (const auto &[call, status, says] : steps) {
        const Outcome outcome = run(call);
        EXPECT_EQ(outcome.status, status) << call.toStdString();
        EXPECT_TRUE((outcome.output + outcome.errors).contains(says)) << outcome.errors.toStdString();
    }
    EXPECT_EQ(sql(u"select username from host_users"_qs).output, u"甲\n"_qs);
}

/// The limit on a file's size stands for a full disk: writing fails in the middle.
TEST_F(AdminTest, ADiskThatFillsLeavesNoFileBehind)
{
    initialise();
    const QStringList before = QDir(m_folder.path()).entryList(QDir::Files);
    for (const QString &call : {u"copy --from"_qs, u"backup --db"_qs}) {
        expectRefusal(shell(u"trap '' XFSZ; ulimit -f 64; exec $0 "_qs + call + u" $1 --to $2"_qs,
                            m_folder.filePath(u"new"_qs)),
                      1, call);
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), before) << call.toStdString();
    }
}

TEST_F(AdminTest, APasswordOnTheCommandLineIsSeenByNobody)
{
    const PostgresBase base;
    const QString url = base.url();
    db::install(*db::Connection::open(url));
    const QByteArray secret = url.section(u':', 2).section(u'@', 0, 0).toUtf8();
    for (const QStringList &call : {QStringList({u"sql"_qs, u"--batch"_qs, u"--db"_qs, url}),
                                    QStringList({u"sql"_qs, u"--db="_qs + url, u"--batch"_qs})}) {
        QProcess process;
        process.start(u"" EBTQ_ADMIN_PROGRAM ""_qs, call);
        process.write("select 1\n");
        ASSERT_TRUE(process.waitForReadyRead(30000)) << process.readAllStandardError().toStdString();
        QFile listed(u"/proc/%1/cmdline"_qs.arg(process.processId()));
        ASSERT_TRUE(listed.open(QIODevice::ReadOnly));
        const QByteArray commandLine = listed.readAll();
        EXPECT_TRUE(commandLine.contains("postgresql://tester@127.0.0.1")) << commandLine.toStdString();
        EXPECT_FALSE(commandLine.contains(secret)) << commandLine.toStdString();
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(30000));
    }
    EXPECT_FALSE(run(u"check"_qs, {url}).errors.contains(QString::fromUtf8(secret)));
}

TEST_F(AdminTest, DeletedAttachmentsArePurgedOnlyWhenThePersonSaysSo)
{
    const PostgresBase base;
    for (const QString &place : {m_file, base.url()}) {
        m_file = place;
        initialise();
        const QString row =
            u"insert into pubAttach(progID,IDs,isActive,modifydate) values(%1,'%2',%3,#%4#)"_qs;
        sql(u"insert into fyxx(房源ID) values('7')"_qs);
        const QString owner = sql(u"select 房源ID from fyxx"_qs).output.trimmed();
        for (const auto &[key, isActive, date] :
             {std::tuple(owner, 1, "2026-01-01"), std::tuple(u"99"_qs, 1, "2026-01-01"),
              std::tuple(owner, 0, "2026-01-01"), std::tuple(owner, 0, "2026-11-01")})
            EXPECT_EQ(sql(row.arg(u"101"_qs, key, QString::number(isActive), QLatin1String(date))).errors,
                      QString());
        EXPECT_EQ(run(u"attachments --db @"_qs).output, u"有效：2 个文件，0 字节\n"
                                                        u"已删除：2 个文件，0 字节\n"
                                                        u"有效但无所属房源：1 个文件，0 字节\n"_qs);
        const QString purge = u"attachments --db @ --purge-deleted --before 2026-06-01"_qs;
        for (const auto &[answer, left] : {std::pair("", "4\n"), std::pair("y\n", "4\n"),
                                           std::pair("清除\n", "3\n"), std::pair("清除\n", "3\n")}) {
            EXPECT_EQ(run(purge, {}, answer).status, 0);
            EXPECT_EQ(sql(u"select count(*) from pubAttach"_qs).output, QLatin1String(left)) << answer;
        }
        EXPECT_EQ(run(u"attachments --db @ --purge-deleted"_qs).status, 2);
    }
}

} // namespace ebtq::test
