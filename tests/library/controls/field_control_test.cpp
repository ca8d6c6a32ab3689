#include "contracts/inline_list.h"
#include "library/controls/field_control.h"

#include <gtest/gtest.h>

using namespace ebtq;

namespace {

class FieldTest : public ::testing::Test
{
protected:
    FieldTest()
    {
        field.set_help_flag(true);
        field.set_judge_time(qzTxt_S::JudgeOnLeaving);
        field.set_error_message(u"状态输入有误，请重新输入！"_qs);
        QObject::connect(&field, &qzTxt_S::checkFailed,
                         [this](const QString &text) { failures.append(text); });
    }
    /// As an editor loads a record.
    void load(const QString &text, const QVariant &value)
    {
        field.setText(text);
        field.setValue(value);
    }
    /// Types and leaves the field; false when the text is refused.
    bool enter(const QString &text)
    {
        field.type(text);
        return field.check();
    }
    [[nodiscard]] QString state() const { return field.Text() + u'|' + field.Value().toString(); }
    /// Finds 有效 by its text or by its code 01, and writes down what it was asked.
    void findByStatement()
    {
        field.set_judge_type(qzTxt_S::JudgeStatement);
        QObject::connect(&field, &qzTxt_S::FieldCheck,
                         [&](const QString &base, const QString &valueField, const QString &textField,
                             QVariant &value, QString &text) {
                             asked.append(QStringList({base, valueField, textField, text}).join(u'|'));
                             if (text != u"01" && text != u"有效")
                                 return;
                             value = u"01"_qs;
                             text = u"有效"_qs;
                         });
    }

    qzTxt_S field{u"qzTxt"_qs, 3};
    QStringList failures;
    QStringList asked;
};

TEST_F(FieldTest, StatementFieldTakesWhatTheCheckGivesBack)
{
    findByStatement();
    field.set_judge_base(u"select 代码 where 代码='@'"_qs);
    field.set_text_field_code(u"代码"_qs);
    field.set_text_field_name(u"名称"_qs);
    EXPECT_TRUE(enter(u"01"_qs));
    EXPECT_EQ(state(), u"有效|01"_qs);
    EXPECT_TRUE(field.check()) << "an accepted text is not asked for again";
    EXPECT_EQ(asked, QStringList(u"select 代码 where 代码='@'|代码|名称|01"_qs));

    EXPECT_FALSE(enter(u"乱"_qs));
    EXPECT_FALSE(field.check()) << "a refused text stays refused";
    EXPECT_EQ(state(), u"乱|"_qs);
    EXPECT_EQ(failures, QStringList(2, u"状态输入有误，请重新输入！"_qs));
    EXPECT_TRUE(enter({}));
    EXPECT_FALSE(field.Value().isValid()) << "an emptied field filters by nothing";
}

TEST_F(FieldTest, OnlyWhatAPersonPutInIsChecked)
{
    findByStatement();
    load(u"翠堤雅居"_qs, 7);
    EXPECT_TRUE(field.check()) << "a loaded record must not be looked up because the focus passes by";
    EXPECT_EQ(state() + asked.join(u' '), u"翠堤雅居|7"_qs);

    EXPECT_TRUE(enter(u"有效"_qs));
    load({}, {}); // as the command for all kinds empties the filter
    EXPECT_TRUE(field.check());
    asked.clear();
    EXPECT_TRUE(enter(u"有效"_qs));
    EXPECT_EQ(asked.size(), 1) << "the same text typed again is looked up again";
    EXPECT_EQ(state(), u"有效|01"_qs);

    field.type(u"乱"_qs);
    load(u"翠堤雅居"_qs, 7);
    EXPECT_TRUE(field.check() && !field.isTyped()) << "a record that was loaded over a typed text";
    field.type(u"乱"_qs);
    field.setValue({});
    EXPECT_TRUE(field.check()) << "code has its reasons";
}

TEST_F(FieldTest, NothingIsFilteredByTheValueOfTheTextBefore)
{
    findByStatement();
    load(u"营业一部"_qs, 1);
    QVariant seen = 1;
    QObject::connect(&field, &qzTxt_S::FieldChange, [&] { seen = field.Value(); });
    field.type(u"营业"_qs);
    EXPECT_FALSE(field.Value().isValid() || seen.isValid()) << "nor does a rule see it with the new text";
    field.type(u"营业一部"_qs);
    EXPECT_FALSE(field.Value().isValid());
    EXPECT_FALSE(field.check()) << "the text of before, typed, is typed text";
}

TEST_F(FieldTest, TakingBackGivesTextAndValueOfBeforeTheFirstLetter)
{
    findByStatement();
    field.takeBack();
    load(u"营业一部"_qs, 1); // the value comes behind the text
    QObject::connect(&field, &qzTxt_S::FieldChange, [&] { field.setValue({}); }); // a rule
    field.type(u"营"_qs);
    EXPECT_FALSE(enter(u"乱"_qs));
    EXPECT_TRUE(field.isTyped());
    field.takeBack();
    EXPECT_TRUE(!field.isTyped() && field.check());
    EXPECT_EQ(state(), u"营业一部|1"_qs);
}

TEST_F(FieldTest, ALockedFieldTakesNothingFromAPerson)
{
    load(u"有效"_qs, u"01"_qs);
    field.setLocked(true);
    QObject::connect(&field, &qzTxt_S::FieldGenericHelp, [] { FAIL(); });
    field.requestHelp(1, 2);
    field.type(u"无"_qs);
    EXPECT_EQ(state(), u"有效|01"_qs);
}

TEST_F(FieldTest, ChecksByTable)
{
    using F = qzTxt_S;
    const std::tuple<int, QString, bool, QString, QString> cases[] = {
        {F::JudgeDate, u"2026/9/8"_qs, true, u"2026-9-8"_qs, u"2026-9-8"_qs},
        {F::JudgeDate, u"2026-2-30"_qs, false, u"2026-2-30"_qs, {}},
        {F::JudgeInlineList, u"本部"_qs, true, u"本部"_qs, u"1"_qs},
        {F::JudgeInlineList, u"2"_qs, true, u"全部"_qs, u"2"_qs},
        {F::JudgeInlineList, u"别处"_qs, false, u"别处"_qs, {}},
        {F::JudgeNothing, u"  "_qs, true, u"  "_qs, {}}, // a free text is the person's own
        {F::JudgeStatement, u"无人答"_qs, false, u"无人答"_qs, {}},
        {F::JudgeStatement, u"  "_qs, true, {}, {}},
    };
    field.set_help_code(u"|本人;0|本部;1|全部;2"_qs);
    for (const auto &[type, text, passes, textAfter, valueAfter] : cases) {
        field.set_judge_type(type);
        load(u"旧"_qs, 99);
        EXPECT_EQ(enter(text), passes) << text.toStdString();
        EXPECT_EQ(state(), textAfter + u'|' + valueAfter);
    }
    field.set_judge_time(qzTxt_S::JudgeNever);
    EXPECT_TRUE(enter(u"别人"_qs));
}

TEST_F(FieldTest, HelpIsRaisedByKind)
{
    QStringList raised;
    QObject::connect(&field, &qzTxt_S::FieldHelp, [&](int left, int top, QString &text, QVariant &value) {
        raised.append(u"own %1 %2 %3 %4"_qs.arg(left).arg(top).arg(text, value.toString()));
        text = u"海珠区"_qs;
        value = 7;
    });
    QObject::connect(
        &field, &qzTxt_S::FieldGenericHelp,
        [&](const QString &key, const QVariant &control, const QVariant &left, const QVariant &top) {
            EXPECT_EQ(control.value<QObject *>(), &field);
            raised.append(u"host %1 %2 %3"_qs.arg(key, left.toString(), top.toString()));
        });
    field.set_help_code(u"gy_fx"_qs);
    for (const int type : {qzTxt_S::HostList, qzTxt_S::Calendar, qzTxt_S::InlineList}) {
        field.set_help_type(type);
        field.requestHelp(10, 20);
    }
    load(u"天河区"_qs, 5);
    field.set_help_type(qzTxt_S::Custom);
    field.requestHelp(10, 20);
    EXPECT_EQ(state(), u"海珠区|7"_qs);
    field.setEnabled(false);
    field.requestHelp(1, 1);
    field.setEnabled(true);
    field.set_help_flag(false);
    field.requestHelp(1, 1);
    EXPECT_EQ(raised, QStringList({u"host gy_fx 10 20"_qs, u"host date 10 20"_qs, u"host gy_fx 10 20"_qs,
                                   u"own 10 20 天河区 5"_qs}));
}

TEST_F(FieldTest, APickedTextIsStillCheckedAndTheChosenOneOfTwoNamesakesIsMeant)
{
    field.set_help_type(qzTxt_S::Custom);
    field.set_judge_type(qzTxt_S::JudgeStatement);
    QObject::connect(&field, &qzTxt_S::FieldHelp, [](int, int, QString &text, QVariant &value) {
        text = u"张敏"_qs;
        value = 7;
    });
    int checks = 0;
    QObject::connect(&field, &qzTxt_S::FieldCheck,
                     [&](const QString &, const QString &, const QString &, QVariant &value, QString &text) {
                         ++checks;
                         value = 3; // the first of that name
                         text = u"张敏"_qs;
                     });
    field.requestHelp(0, 0);
    EXPECT_TRUE(field.check());
    EXPECT_EQ(checks, 1) << "the check fills the fields that depend on this one";
    EXPECT_EQ(field.Value(), QVariant(7));
    field.type(u"张"_qs);
    EXPECT_TRUE(enter(u"张敏"_qs));
    EXPECT_EQ(field.Value(), QVariant(3)) << "a typed name is the first of that name";
}

TEST(InlineListTest, ReadsWhatScreensWrite)
{
    const InlineList list(u"|有效;0|失效;1||无值"_qs);
    ASSERT_EQ(list.entries().size(), 3U);
    EXPECT_EQ(list.entries()[1].text, u"失效"_qs);
    EXPECT_EQ(list.entries()[1].value, u"1"_qs);
    EXPECT_EQ(list.entries()[2].value, QString());
    EXPECT_TRUE(InlineList({}).entries().empty());
}

} // namespace
