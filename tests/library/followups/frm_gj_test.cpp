#include "library/followups/frm_gj.h"

#include "host/setup.h"
#include "library/listings/frm_fx_fixture.h"

using namespace ebtq;
using ebtq::test::FrmFxTest;

namespace {

const QString firstKey = u"00000000-0000-0000-0000-000000000001"_qs;
const QString owner = u"L1"_qs;

/// The editor of follow-ups over a database, with its events written down in order.
class FrmGjTest : public FrmFxTest
{
protected:
    explicit FrmGjTest(const QString &file = u":memory:"_qs)
        : FrmFxTest(file)
    {
        QObject::connect(&gj, &FrmGj::ReturnData, [this](const QString &id, bool isNew) {
            events += (isNew ? u"new "_qs : u"changed "_qs) + id;
        });
        QObject::connect(&gj, &FrmGj::unloaded, [this] { events += u"closed"_qs; });
    }
    void openGj(const QString &followUp, const std::function<void()> &act, bool disable = false)
    {
        desktop.willShow([&](QObject &shown) {
            EXPECT_EQ(&shown, &gj);
            act();
        });
        app.statements.clear();
        gj.py_Init(app, owner, followUp, disable);
    }
    void saveGj() { gj.Cmd(0).press(); }
    [[nodiscard]] QString row(const QString &columns) const
    {
        const RowBlock stored = rows(u"select "_qs + columns + u" from fygj"_qs);
        QStringList cells;
        for (int at = 0; stored.rowCount() == 1 && at < stored.columnCount(); ++at)
            cells.append(QString::fromUtf8(stored.cell(0, at)));
        return cells.join(u'|');
    }

    FrmGj gj{desktop};
};

const QString insertion =
    u"insert into "
    u"fygj(跟进ID,操作日期,业务员ID,用户ID,跟进内容,房源ID,下次提醒,提醒日期,提醒范围,提醒内容,处理结果)"
    u"values('%1',"_qs.arg(firstKey);

TEST_F(FrmGjTest, ANewFollowUpIsInsertedAsItStands)
{
    const std::pair<std::function<void()>, QString> cases[] = {
        {[] {}, u"#2026-11-25 9:30:00#,0,'U1','','L1',0,#2026-11-25 9:30:00#,0,'','')"_qs},
        {[&] {
             gj.qzTxt(0).type(u" 2026-3-1 "_qs);
             script = {{}, u"李强"_qs, 5, nullptr};
             gj.qzTxt(2).requestHelp(3, 4);
             gj.Txt().setText(u"  客户出价300万\n愿谈 "_qs);
             gj.Chk().setValue(1);
             gj.qzTxt(3).type(u"2026-3-8"_qs);
             gj.qzTxt(4).type(u"本部"_qs);
             EXPECT_TRUE(gj.qzTxt(4).check());
             gj.qzTxt(5).type(u" 回电 "_qs);
             gj.qzTxt(6).type(u" 已约 "_qs);
         },
         u"# 2026-3-1 #,5,'U1','客户出价300万\n愿谈','L1',1,#2026-3-8#,1,'回电','已约')"_qs},
    };
    for (const auto &[fill, values] : cases) {
        desktop.newGuidBytes(); // keys go on from here
        connection->execute(u"delete from fygj"_qs);
        events.clear();
        QString key;
        openGj({}, [&] {
            EXPECT_EQ(gj.qzTxt(0).Text() + gj.qzTxt(1).Text() + gj.qzTxt(7).Text(),
                      u"2026-11-25 9:30:00营业一部张敏");
            fill();
            saveGj();
        });
        ASSERT_EQ(events.size(), 2);
        key = events[0].section(u' ', 1);
        EXPECT_EQ(events, QStringList({u"new "_qs + key, u"closed"_qs}));
        EXPECT_EQ(app.statements.last(), QString(insertion).replace(firstKey, key) + values);
    }
    EXPECT_EQ(script.asked, QStringList(u"show pdmgy 3 4 lock=1 组织类型=1"_qs));
    EXPECT_EQ(row(u"操作日期,业务员ID,跟进内容,房源ID,下次提醒,提醒日期,提醒范围,提醒内容,处理结果"_qs),
              u"2026-3-1|5|客户出价300万\n愿谈|L1|1|2026-3-8|1|回电|已约");
}

TEST_F(FrmGjTest, TheTickOpensTheReminder)
{
    const auto enabled = [&] {
        QString numbers;
        for (int number = 0; number < 8; ++number)
            numbers += gj.qzTxt(number).Enabled() ? QString::number(number) : QString();
        return numbers + (gj.Txt().Enabled() ? u"T"_qs : QString()) +
               (gj.Chk().Enabled() ? u"C"_qs : QString()) + (gj.Cmd(0).Enabled() ? u"S"_qs : QString()) +
               (gj.Cmd(1).Enabled() ? u"X"_qs : QString()) + (gj.lblHint().Visible() ? u"H"_qs : QString());
    };
    for (int opening = 0; opening < 2; ++opening) {
        openGj({}, [&] {
            EXPECT_EQ(enabled(), u"02TCSX") << opening;
            gj.Chk().setValue(1);
            EXPECT_EQ(enabled(), u"023456TCSXH") << "it would never fall due without a date";
            gj.qzTxt(3).setText(u"2026-3-8"_qs);
            EXPECT_EQ(enabled(), u"023456TCSX");
            gj.Chk().setValue(0);
            EXPECT_EQ(enabled(), u"02TCSX");
            gj.Chk().setValue(1); // the next opening must not find it
        });
    }
    openGj(
        {},
        [&] {
            EXPECT_EQ(enabled(), u"X");
            saveGj();
            EXPECT_EQ(events, QStringList());
        },
        true);
}

TEST_F(FrmGjTest, FieldsAreLookedUpEachInItsWay)
{
    openGj({}, [&] {
        for (const int number : {0, 3})
            EXPECT_TRUE(gj.qzTxt(number).help_type() == qzTxt_S::Calendar &&
                        gj.qzTxt(number).help_menuflag());
        EXPECT_EQ(gj.qzTxt(4).help_code(), u"|本人;0|本部;1|全部;2");
        EXPECT_EQ(gj.qzTxt(2).error_message() + gj.qzTxt(4).error_message(),
                  u"经纪人输入有误，请重新输入！提醒范围输入有误，请重新输入！");
        gj.qzTxt(2).type(u"王五"_qs);
        EXPECT_FALSE(gj.qzTxt(2).check()) << "an agent must be a known one";
        EXPECT_EQ(script.asked, QStringList(u"validate pdmgy 王五 lock=1 组织类型=1"_qs));
        gj.qzTxt(4).type(u"邻居"_qs);
        EXPECT_FALSE(gj.qzTxt(4).check());
        gj.qzTxt(4).type(u"2"_qs);
        EXPECT_TRUE(gj.qzTxt(4).check());
        EXPECT_EQ(gj.qzTxt(4).Text() + gj.qzTxt(4).Tag(), u"全部2");
    });
}

TEST_F(FrmGjTest, ARefusedSaveKeepsEverythingTyped)
{
    struct Case
    {
        const char *what;
        std::function<void()> spoil;
    };
    const Case cases[] = {
        {"an apostrophe", [&] { gj.Txt().setText(u"it's','',0) --"_qs); }},
        {"another one", [&] { gj.qzTxt(6).setText(u"'"_qs); }},
        {"no date", [&] { gj.qzTxt(0).setText(u"2026-13-45"_qs); }},
        {"words for a date", [&] { gj.qzTxt(3).setText(u"明天"_qs); }},
        {"no number", [&] { gj.qzTxt(2).setValue(u"1e999"_qs); }},
        {"no table", [&] { connection->executeNative("alter table fygj rename to x"); }},
    };
    for (const Case &c : cases) {
        openGj({}, [&] {
            gj.qzTxt(5).setText(u"回电"_qs);
            c.spoil();
            desktop.willAnswer(Desktop::Answer::Ok);
            saveGj();
            EXPECT_EQ(gj.qzTxt(5).Text(), u"回电");
        });
        const QStringList told = asked();
        ASSERT_EQ(told.size(), 1) << c.what;
        EXPECT_TRUE(told[0].startsWith(u"提示:x|") && told[0].size() > 8) << told[0].toStdString();
        EXPECT_EQ(events, QStringList()) << c.what;
    }
    connection->executeNative("alter table x rename to fygj");
    desktop.willAnswer(Desktop::Answer::Ok);
    saveGj(); // nobody has opened it
    EXPECT_EQ(asked(), QStringList(u"提示:x|DoSave:模块尚未初始化！"_qs));
    EXPECT_EQ(rows(u"select 跟进ID from fygj"_qs).rowCount(), 0);
}

TEST_F(FrmGjTest, ALockedDatabaseIsToldAndTheNextSaveWorks)
{
    const auto file =
        db::Connection::open(folder.filePath(u"locked.db"_qs), db::Connection::Missing::IsCreated);
    host::prepareDatabase(*file);
    file->setLockTimeout(10);
    const auto other = db::Connection::open(file->location());
    host::Application agency{*file, {u"U1"_qs, u"张敏"_qs, {}}, {folder.path(), QDate(2026, 11, 22)}, panels};
    desktop.willShow([&](QObject &) {
        gj.Txt().setText(u"记下"_qs);
        other->begin();
        desktop.willAnswer(Desktop::Answer::Ok);
        saveGj();
        other->rollback();
        EXPECT_EQ(gj.Txt().Text() + gj.qzTxt(1).Text(), u"记下") << "a user without a department";
        saveGj();
    });
    gj.py_Init(agency, owner, {}, false);
    EXPECT_EQ(asked().size(), 1);
    EXPECT_EQ(file->query(u"select 跟进内容 from fygj"_qs).value(0, 0).toString(), u"记下");
}

class FrmGjEditTest : public FrmGjTest
{
protected:
    FrmGjEditTest()
    {
        connection->execute(
            u"insert into fygj "
            u"(跟进ID,操作日期,业务员ID,用户ID,跟进内容,房源ID,下次提醒,提醒日期,提醒范围,提醒内容,"
            u"处理结果) values ('G1',#2026-1-2#,5,'U1',' 看房 ','L1',1,#2026-1-9#,2,' 回电 ',' 好 ')"_qs);
    }
};

TEST_F(FrmGjEditTest, ARowThatCannotBeReadOpensNothing)
{
    const QString before = row(u"*"_qs);
    desktop.willAnswer(Desktop::Answer::Ok);
    gj.py_Init(app, owner, u"G1"_qs, false); // a form shown now would fail as not scripted
    const QStringList told = asked();
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].startsWith(u"提示:x|Py_Init:") && told[0].size() > 20) << told[0].toStdString();
    EXPECT_EQ(row(u"*"_qs), before);
}

/// On a database that took the statement as it is meant.
TEST_F(FrmGjEditTest, AnEditWritesBackWhatItReadButTheAuthor)
{
    app.asRun = [](const SqlText &sql) {
        if (!sql.text().startsWith(u"select A.*"))
            return sql;
        return SqlText(
            u"select A.*,A.提醒日期 as 提醒时间,C.mtname as 部门,B.username as 制单人,D.姓名 as 业务员 from "
            u"((fygj A left join su_membership B on A.用户ID=B.userID) left join su_usertype C on "
            u"B.UserTypeID=C.mtID) left join pdmgy D on A.业务员ID=D.雇员ID where 跟进ID='G1'"_qs);
    };
    openGj(u"G1"_qs, [&] {
        QString shown = gj.Txt().Text();
        for (int number = 0; number < 8; ++number)
            shown += u'|' + gj.qzTxt(number).Text();
        EXPECT_EQ(shown, u"看房|2026-1-2|营业一部|李强|2026-1-9|全部|回电|好|张敏");
        EXPECT_TRUE(gj.qzTxt(3).Enabled()) << "its tick is set";
        gj.qzTxt(0).setText(u" 2026-1-3 "_qs);
        saveGj();
    });
    EXPECT_EQ(app.statements.last(),
              u"update fygj set 操作日期=#2026-1-3#,业务员ID=5,跟进内容='看房',房源ID='L1',下次提醒=1,"
              u"提醒日期=#2026-1-9#,提醒范围=2,提醒内容='回电',处理结果='好' where 跟进ID='G1'"_qs);
    EXPECT_EQ(events, QStringList({u"changed G1"_qs, u"closed"_qs}));
}

} // namespace
