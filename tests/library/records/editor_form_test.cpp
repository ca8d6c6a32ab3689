#include "host/host_parameters.h"
#include "library/followups/frm_gj.h"
#include "library/listings/frm_fx_fixture.h"

using namespace ebtq;
using ebtq::test::FrmFxTest;

namespace {

constexpr auto Ok = Desktop::Answer::Ok;
constexpr auto No = Desktop::Answer::No;

/// What all editors share, tried on the listing's.
class EditorFormTest : public FrmFxTest
{
protected:
    using Number = EditorNumber::Number;
    /// What a colleague saves meanwhile.
    void colleague(const QString &assignments) const
    {
        connection->execute(u"update fyxx set "_qs + assignments);
    }
};

TEST_F(EditorFormTest, NumbersAreReadAsPeopleTypeThemAndRefusedWhenTheyAreNone)
{
    const QString id = makeListing();
    const QString cases =
        u"２６０ 260|1,250 1250|1\u3000250.5 1250.5|１，２５０．５ 1250.5|1 250　000 1250000|"
        u"-3 -3|.5 0.5|1E3 1000| 0|   0|26abc !|一百 !|1,25 !|12万 !|1.2.3 !|0x1F !|--1 !|"
        u"1e9999 !|10² !|½ !|12 50 !|1,250,0 !"_qs;
    for (const QString &each : cases.split(u'|')) {
        const QString typed = each.section(u' ', 0, -2);
        const bool isRefused = each.endsWith(u'!');
        const QString before = stored(u"总面积"_qs);
        open(id, [&] {
            qzTxt_S &area = form.qzFcTxt(Number::Area);
            area.type(typed);
            EXPECT_EQ(area.check(), !isRefused) << typed.toStdString();
            isRefused ? save({Ok}) : save();
            EXPECT_EQ(asked(),
                      isRefused ? QStringList(u"提示:|面积输入有误，请重新输入！"_qs) : QStringList());
            EXPECT_TRUE(!isRefused || area.Text() == typed);
        });
        EXPECT_EQ(stored(u"总面积"_qs), isRefused ? before : each.section(u' ', -1)) << typed.toStdString();
        EXPECT_EQ(std::exchange(events, {}).size(), isRefused ? 0 : 2);
    }
}

TEST_F(EditorFormTest, AChangedFormAsksBeforeItCloses)
{
    const QString id = makeListing();
    const std::optional<int> save = 0, discard = 1, neither;
    const struct
    {
        std::function<void()> change;
        std::optional<int> answer;
        bool closes;
        QString stored; ///< owner and remark afterwards
    } cases[] = {
        {[&] { form.qzFcTxt(Number::Owner).type(u"甲"_qs); }, neither, false, u"陈先生"_qs},
        {[&] { form.Txt(1).setText(u"注"_qs); }, discard, true, u"陈先生"_qs},
        {[&] { form.Chk(1).setValue(1); }, discard, true, u"陈先生"_qs},
        {[&] { form.qzFcTxt(Number::Owner).type(u"乙"_qs); }, save, true, u"乙"_qs},
    };
    for (const auto &c : cases) {
        open(id, [&] {
            EXPECT_TRUE(form.mayClose()) << "unchanged";
            c.change();
            desktop.willChoose(c.answer);
            EXPECT_EQ(form.mayClose(), c.closes);
            EXPECT_EQ(asked(), QStringList(u"提示：|数据已变动，是否保存！"_qs));
        });
        EXPECT_EQ(stored(u"业主 & 备注"_qs), c.stored);
    }
    // A save that refuses what was typed and not left keeps the form; so does a new listing after which
    // another one is wanted.
    open(id, [&] {
        form.qzFcTxt(Number::Deal).type(u"交换"_qs);
        desktop.willChoose(save);
        desktop.willAnswer(Ok);
        EXPECT_FALSE(form.mayClose());
        EXPECT_EQ(asked().value(1), u"提示:|交易输入有误，请重新输入！");
        EXPECT_EQ(text(Number::Deal) + stored(u"交易方式"_qs), u"交换出售");
    });
    open({}, [&] {
        EXPECT_TRUE(form.mayClose());
        fill(form, required);
        desktop.willChoose(save);
        desktop.willAnswer(Desktop::Answer::Yes);
        EXPECT_FALSE(form.mayClose());
        EXPECT_TRUE(form.mayClose()) << "the next listing has not been touched";
    });
    open(
        id,
        [&] {
            form.qzFcTxt(Number::Mobile).setText(u"1"_qs);
            EXPECT_TRUE(form.mayClose()) << "for reading only";
        },
        true);
}

TEST_F(EditorFormTest, AFormThatIsOpenIsNotOpenedAgain)
{
    const QString id = makeListing();
    open(id, [&] {
        form.qzFcTxt(Number::Owner).type(u"王女士"_qs);
        form.py_Init(app, 101, {}, false);
        EXPECT_EQ(text(Number::Owner), u"王女士");
        save();
    });
    EXPECT_EQ(stored(u"业主"_qs), u"王女士");
}

TEST_F(EditorFormTest, ARowThatIsGoneIsNotReportedAsSaved)
{
    const QString id = makeListing();
    for (const QString &isChecked : {u"1"_qs, u"0"_qs}) {
        host::setParameter(*connection, {}, 12, u"savecheck"_qs, isChecked);
        open(id, [&] {
            connection->execute(u"update fyxx set 房源ID='away'"_qs);
            form.qzFcTxt(Number::Owner).setText(u"王女士"_qs);
            save({Ok});
            EXPECT_EQ(asked(),
                      QStringList(u"提示:x|这条记录已被他人删除，没有保存！输入的内容仍在窗口中。"_qs));
            EXPECT_EQ(text(Number::Owner), u"王女士");
        });
        EXPECT_EQ(events, QStringList());
        EXPECT_FALSE(connection->inTransaction());
        connection->execute(u"update fyxx set 房源ID='%1'"_qs.arg(id));
    }
}

TEST_F(EditorFormTest, AColleaguesChangeIsNotOverwrittenWithoutAWord)
{
    enum Answer : int { Merge, Overwrite, Reload };
    const QString told = u"提示:|打开之后，他人修改并保存了这条记录：\n手机：139 → 138\n\n合并："_qs;
    const struct
    {
        std::optional<int> answer;
        QString mobile; ///< that this form changes; else another field
        QString stored; ///< owner and mobile afterwards
        QString shown;
        QString events;
    } cases[] = {
        {Merge, {}, u"新138"_qs, u"138"_qs, u"changed closed"_qs},
        {Merge, u"137"_qs, u"新137"_qs, u"137"_qs, u"changed closed"_qs},
        {Overwrite, {}, u"新139"_qs, u"139"_qs, u"changed closed"_qs},
        {Reload, {}, u"旧138"_qs, u"138"_qs, {}},
        {std::nullopt, {}, u"旧138"_qs, u"139"_qs, {}},
    };
    const QString id = makeListing();
    for (const auto &c : cases) {
        colleague(u"业主='旧',手机='139'"_qs);
        events.clear();
        open(id, [&] {
            form.qzFcTxt(Number::Owner).setText(u"新"_qs);
            if (!c.mobile.isEmpty())
                form.qzFcTxt(Number::Mobile).setText(c.mobile);
            colleague(u"手机='138'"_qs);
            desktop.willChoose(c.answer);
            save();
            EXPECT_TRUE(asked().value(0).startsWith(told));
            EXPECT_EQ(text(Number::Mobile), c.shown);
            EXPECT_EQ(form.isDirty(), c.answer != Reload);
        });
        EXPECT_EQ(stored(u"业主 & 手机"_qs), c.stored);
        EXPECT_EQ(events.join(u' '), c.events);
    }
}

TEST_F(EditorFormTest, OnlyARealDifferenceIsAskedAbout)
{
    const QString id = makeListing();
    const auto saveAfter = [&](const QString &assignments, const QString &mobile) {
        colleague(u"手机='139'"_qs);
        open(id, [&] {
            form.qzFcTxt(Number::Mobile).setText(mobile);
            colleague(assignments);
            save();
        });
    };
    saveAfter(u"手机='138'"_qs, u"138"_qs);    // both changed it to the same
    saveAfter(u"业主='陈先生'"_qs, u"138"_qs); // written, not changed
    host::setParameter(*connection, {}, 12, u"savecheck"_qs, u"0"_qs);
    saveAfter(u"业主='旧'"_qs, u"137"_qs); // the later write wins where the host wants it so
    EXPECT_EQ(stored(u"业主 & 手机"_qs), u"陈先生137");
    EXPECT_EQ(asked(), QStringList());
}

TEST_F(EditorFormTest, AnEarlierAttemptOfItsOwnIsNoColleaguesChange)
{
    open(makeListing(), [] {});
    open({}, [&] {
        fill(form, required);
        app.asRun = [&](const SqlText &sql) {
            if (!sql.text().startsWith(u"insert"))
                return sql;
            connection->execute(sql);
            return SqlText(u"answer lost"_qs);
        };
        save({Ok});
        form.qzFcTxt(Number::Owner).setText(u"王女士"_qs);
        (void)asked();
        save({No});
        EXPECT_EQ(asked(), QStringList(u"提示:|是否继续新建?"_qs));
    });
    EXPECT_EQ(events, u"new closed"_qs.split(u' '));
}

TEST_F(EditorFormTest, ADatabaseThatCannotBeWrittenOpensEveryFormClosed)
{
    const QString id = makeListing();
    FrmGj followUp(desktop);
    const auto openControls = [](Module &editor) {
        QString names;
        for (const auto &control : editor.IDesignUI_Controls())
            if (control->Enabled() && control->TypeName() != u"Label")
                names += control->Name() + QString::number(control->Index());
        return names;
    };
    host::Application &sealed = sealedHost();
    onceShown([&] { EXPECT_EQ(openControls(form), u"Cmd1Cmd4Cmd5"); });
    form.py_Init(sealed, host::ListingModule, id, false);
    onceShown([&] { EXPECT_EQ(openControls(followUp), u"Cmd1"); });
    followUp.py_Init(sealed, id, {}, false);
}

TEST_F(EditorFormTest, ANumberTakenByARefusedSaveIsUsedByTheNext)
{
    open({}, [&] {
        fill(form, required);
        form.qzFcTxt(Number::Owner).setText(u"O'Neil"_qs);
        int focused = 0;
        QObject::connect(&form.qzFcTxt(Number::Owner), &Control::focusRequested, [&] { ++focused; });
        save({Ok});
        EXPECT_TRUE(asked().value(0).endsWith(u"\n单引号在“业主”中。"_qs));
        EXPECT_EQ(focused, 1);
        form.qzFcTxt(Number::Area).setText(u"x"_qs);
        save({Ok});
    });
    for (const QString &number : u"FY2026110001,FY2026110002"_qs.split(u',')) {
        connection->execute(u"delete from fyxx"_qs);
        (void)makeListing();
        EXPECT_EQ(stored(u"房源编号"_qs), number);
    }
}

} // namespace
