#include "library/followups/frm_gj.h"

#include "library/support/editor_test.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

enum Number : int { Date, Department, Agent, ReminderTime, Range, Reminder, Result, Author };

/// The editor of follow-ups over a database.
class FrmGjTest : public EditorTest<FrmGj>
{
protected:
    void open(const QString &followUp, const std::function<void()> &act, bool disable = false)
    {
        onceShown(act);
        form.py_Init(app, u"L1"_qs, followUp, disable);
    }
    [[nodiscard]] QString text(int number) const { return form.qzTxt(number).Text(); }
    bool enter(int number, const QString &typedText)
    {
        form.qzTxt(number).type(typedText);
        return form.qzTxt(number).check();
    }
    /// All values of the only row.
    [[nodiscard]] QString stored(const QString &columns) const
    {
        return found(u"select %1 from fygj"_qs.arg(QString(columns).replace(u","_qs, u" & '|' & "_qs)));
    }
};

TEST_F(FrmGjTest, ANewFollowUpIsInsertedAsItStands)
{
    const std::pair<std::function<void()>, QString> cases[] = {
        {[] {}, u"#2026-12-25 9:30:00#,0,'U1','','L1',0,#2026-12-25 9:30:00#,0,'','')"_qs},
        {[&] {
             form.qzTxt(Date).setText(u" 2026-3-1 "_qs);
             script = {{}, u"李强"_qs, 5, nullptr};
             form.qzTxt(Agent).requestHelp(3, 4);
             form.Txt().setText(u"  客户出价300万\n愿谈 "_qs);
             form.Chk().setValue(1);
             form.qzTxt(ReminderTime).type(u"2026-3-8"_qs);
             EXPECT_TRUE(enter(Range, u"本部"_qs));
             form.qzTxt(Reminder).type(u" 回电 "_qs);
             form.qzTxt(Result).type(u" 已约 "_qs);
         },
         u"# 2026-3-1 #,5,'U1','客户出价300万\n愿谈','L1',1,#2026-3-8#,1,'回电','已约')"_qs},
    };
    for (const auto &[fill, values] : cases) {
        connection->execute(u"delete from fygj"_qs);
        events.clear();
        open({}, [&, act = fill] {
            EXPECT_EQ(text(Date) + text(Department) + text(Author), u"2026-12-25 9:30:00营业一部张敏");
            act();
            save();
        });
        EXPECT_EQ(events, QStringList({u"new"_qs, u"closed"_qs}));
        EXPECT_EQ(
            app.statements.last(),
            u"insert into fygj(跟进ID,操作日期,业务员ID,用户ID,跟进内容,房源ID,下次提醒,提醒日期,提醒范围,"
            u"提醒内容,处理结果)values('%1',"_qs.arg(saved) +
                values);
    }
    EXPECT_EQ(script.asked, QStringList(u"show pdmgy 3 4 lock=1 组织类型=1"_qs));
    EXPECT_EQ(stored(u"操作日期,业务员ID,跟进内容,房源ID,下次提醒,提醒日期,提醒范围,提醒内容,处理结果"_qs),
              u"2026-3-1|5|客户出价300万\n愿谈|L1|1|2026-3-8|1|回电|已约");
}

TEST_F(FrmGjTest, TheTickOpensTheReminder)
{
    const auto enabled = [&] {
        QString names;
        for (const auto &control : form.IDesignUI_Controls())
            if (control->Enabled() && control->TypeName() != u"Label")
                names += control->Name() + (control->Index() < 0 ? u" "_qs : u"%1 "_qs.arg(control->Index()));
        return names.remove(u"qzTxt"_qs) + (form.lblHint().Visible() ? u"hint"_qs : QString());
    };
    for (int opening = 0; opening < 2; ++opening) {
        open({}, [&] {
            EXPECT_EQ(enabled(), u"0 2 Txt Chk Cmd0 Cmd1 ") << opening;
            form.Chk().setValue(1);
            EXPECT_EQ(enabled(), u"0 2 3 4 5 6 Txt Chk Cmd0 Cmd1 hint")
                << "without a date it never falls due";
            form.qzTxt(ReminderTime).setText(u"2026-3-8"_qs);
            EXPECT_EQ(enabled(), u"0 2 3 4 5 6 Txt Chk Cmd0 Cmd1 ");
            form.Chk().setValue(0);
            EXPECT_EQ(enabled(), u"0 2 Txt Chk Cmd0 Cmd1 ");
            form.Chk().setValue(1); // the next opening must not find it
        });
    }
    const auto look = [&] {
        EXPECT_EQ(enabled(), u"Cmd1 ");
        save();
    };
    open({}, look, true);
    EXPECT_EQ(events, QStringList());
}

TEST_F(FrmGjTest, FieldsAreCalledAndLookedUpEachInItsWay)
{
    open({}, [&] {
        QStringList captions;
        for (int number = Date; number <= Author; ++number) {
            const bool isDate = number == Date || number == ReminderTime;
            EXPECT_EQ(form.qzTxt(number).help_type() == qzTxt_S::Calendar, isDate) << number;
            EXPECT_EQ(form.qzTxt(number).Caption().trimmed(), form.fieldOf(number).title) << number;
            captions += form.qzTxt(number).Caption();
        }
        EXPECT_EQ(captions.join(u'|'),
                  u"跟进日期|    部门|经纪人|提醒时间|提醒范围|提醒内容|处理结果|制单人");
        EXPECT_EQ(form.qzTxt(Range).help_code(), u"|本人;0|本部;1|全部;2");
        EXPECT_EQ(form.qzTxt(Agent).error_message() + form.qzTxt(Range).error_message(),
                  u"经纪人输入有误，请重新输入！提醒范围输入有误，请重新输入！");
        EXPECT_FALSE(enter(Agent, u"王五"_qs)) << "an agent must be a known one";
        EXPECT_EQ(script.asked, QStringList(u"validate pdmgy 王五 lock=1 组织类型=1"_qs));
        EXPECT_FALSE(enter(Range, u"邻居"_qs));
        EXPECT_TRUE(enter(Range, u"2"_qs));
        EXPECT_EQ(text(Range) + form.qzTxt(Range).Tag(), u"全部2");
    });
}

TEST_F(FrmGjTest, ARefusedSaveKeepsEverythingTyped)
{
    const std::function<void()> spoils[] = {
        [&] { form.Txt().setText(u"it's','',0) --"_qs); },
        [&] { form.qzTxt(ReminderTime).setText(u"明天"_qs); },
        [&] { form.qzTxt(Agent).setValue(u"1e999"_qs); },
        [&] { connection->executeNative("alter table fygj rename to x"); },
    };
    for (const auto &spoil : spoils) {
        open({}, [&] {
            form.qzTxt(Reminder).setText(u"回电"_qs);
            spoil();
            save({Desktop::Answer::Ok});
            EXPECT_EQ(text(Reminder), u"回电");
        });
        EXPECT_TRUE(onlyMessage().starts_with("提示:x|"));
        EXPECT_EQ(events, QStringList());
    }
    connection->executeNative("alter table x rename to fygj");
    save({Desktop::Answer::Ok}); // nobody has opened it
    EXPECT_EQ(onlyMessage(), "提示:x|DoSave:模块尚未初始化！");
    EXPECT_EQ(stored(u"跟进ID"_qs), QString());
}

class FrmGjEditTest : public FrmGjTest
{
protected:
    FrmGjEditTest()
    {
        insert({u"fygj (跟进ID,操作日期,业务员ID,用户ID,跟进内容,房源ID,下次提醒,提醒日期,提醒范围,提醒内容,"
                u"处理结果) values ('G1',#2026-1-2#,5,'U1',' 看房 ','L1',1,#2026-1-9#,2,' 回电 ',' 好 ')"});
    }
};

TEST_F(FrmGjEditTest, ARowThatCannotBeReadOpensNothing)
{
    desktop.willAnswer(Desktop::Answer::Ok);
    form.py_Init(app, u"L1"_qs, u"G1"_qs, false); // a form shown now would fail as not scripted
    const std::string told = onlyMessage();
    EXPECT_TRUE(told.starts_with("提示:x|Py_Init:") && told.size() > 30) << told;
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
    open(u"G1"_qs, [&] {
        QString shown = form.Txt().Text();
        for (int number = Date; number <= Author; ++number)
            shown += u'|' + text(number);
        EXPECT_EQ(shown, u"看房|2026-1-2|营业一部|李强|2026-1-9|全部|回电|好|张敏");
        EXPECT_TRUE(form.qzTxt(ReminderTime).Enabled()) << "its tick is set";
        form.qzTxt(Date).setText(u" 2026-1-3 "_qs);
        save();
    });
    EXPECT_EQ(app.statements.last(),
              u"update fygj set 操作日期=#2026-1-3#,业务员ID=5,跟进内容='看房',房源ID='L1',下次提醒=1,"
              u"提醒日期=#2026-1-9#,提醒范围=2,提醒内容='回电',处理结果='好' where 跟进ID='G1'"_qs);
    EXPECT_EQ(saved + events.join(u' '), u"G1changed closed");
}

} // namespace
