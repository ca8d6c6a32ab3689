#include "host/host_fixture.h"

#include "library/controls/field_control.h"
#include "library/support/agency_test.h"

namespace ebtq::test {

class PickersTest : public HostTest
{
protected:
    HostPicker &picker(const char16_t *name) { return m_host->Picker(QString::fromUtf16(name)); }
    void set(HostPicker &target, const char16_t *name, const QVariant &setting)
    {
        target.Parameters().Item(QString::fromUtf16(name)).Value = setting;
    }
    bool validate(HostPicker &target, const QString &typedText)
    {
        m_value = u"old"_qs;
        m_text = u"old"_qs;
        return target.Validate({}, {}, {}, typedText, m_value, m_text);
    }
    bool show(HostPicker &target, const QString &chosen)
    {
        m_panels.willChoose(chosen);
        return target.Show(10, 20, m_text, m_value);
    }
    bool help(const QString &key, qzTxt_S &field)
    {
        return m_host->ShowHelp(key, QVariant::fromValue<QObject *>(&field), 1, 2, -1);
    }
    QVariant m_value;
    QString m_text;
};

TEST_F(PickersTest, ValidateFindsByEachWayOfTyping)
{
    // Picker, typed text, value and text.
    const char16_t *const cases[] = {u"pdmdq|010102|4|清水湾",
                                     u"PdmDq|石桥头|3|石桥头",
                                     u"pdmgy|amy lee|12|Amy Lee",
                                     u"pdmgy| 7 |7|陈晓雯",
                                     u"pdmgy|陈||",
                                     u"gy_fx|三房|02|三房",
                                     u"gy_fxrpt|2-1-1-1|01|2-1-1-1",
                                     u"sy_usertype|营业二部|6|营业二部",
                                     u"sy_usertype|x' or '1'='1||"};
    for (const char16_t *each : cases) {
        SCOPED_TRACE(QString::fromUtf16(each).toStdString());
        const QStringList c = QString::fromUtf16(each).split(u'|');
        HostPicker &wanted = m_host->Picker(c[0]);
        ASSERT_TRUE(wanted.Ready());
        EXPECT_EQ(validate(wanted, c[1]), !c[2].isEmpty());
        EXPECT_EQ(m_value.toString(), c[2]);
        EXPECT_EQ(m_text, c[3]);
    }
    EXPECT_EQ(m_failures.size(), 1) << "the apostrophe alone is a failure";
    EXPECT_EQ(m_host->LastError().Description, m_failures.constFirst());
}

TEST_F(PickersTest, OnlyDetailDistrictsCountWhenAskedFor)
{
    HostPicker &districts = picker(u"pdmdq");
    EXPECT_TRUE(validate(districts, u"锦溪区"_qs));
    set(districts, u"pdmsfmx", 1);
    EXPECT_FALSE(validate(districts, u"锦溪区"_qs));
    EXPECT_EQ(m_text, QString());

    set(districts, u"pdmsfmx", 1);
    m_text = u"石桥头"_qs;
    EXPECT_TRUE(show(districts, u"010102"_qs));
    EXPECT_EQ(m_panels.shownRows().size(), 4) << "a tree needs the districts above, too";
    EXPECT_EQ(m_panels.currentRow(), u"010101"_qs);
    EXPECT_GE(m_panels.levelCodeColumn(), 0);
    EXPECT_GE(m_panels.choosableColumn(), 0);
    EXPECT_EQ(m_value.toString(), u"4"_qs);
    EXPECT_EQ(m_text, u"清水湾"_qs);

    EXPECT_TRUE(show(districts, u"0101"_qs));
    EXPECT_EQ(m_panels.choosableColumn(), -1);
}

TEST_F(PickersTest, LeavingThePanelOrHavingNoneLeavesTheValues)
{
    m_value = 99;
    m_text = u"as typed"_qs;
    EXPECT_FALSE(show(picker(u"pdmgy"), QString()));
    EXPECT_EQ(m_value, QVariant(99));
    EXPECT_EQ(m_text, u"as typed"_qs);
    HostPicker &absent = picker(u"无此选择器");
    EXPECT_FALSE(absent.Ready() || absent.Show(0, 0, m_text, m_value));
    EXPECT_EQ(m_text, u"as typed"_qs);
    EXPECT_FALSE(validate(absent, u"x"_qs));
    EXPECT_EQ(m_text, QString());
}

TEST_F(PickersTest, PickersOfTheComponentLibraryComeFirstAndMayFail)
{
    struct FailingPicker : ScriptedPicker
    {
        using ScriptedPicker::ScriptedPicker;
        bool Show(int, int, QString &, QVariant &, int, const QString &) override
        {
            throw Failure(u"楼盘列表读取失败"_qs);
        }
    };
    PickerScript script;
    script.value = 31;
    m_host->setPickerFactory([&](const QString &name) {
        return name.compare(u"selpdmlpzd", Qt::CaseInsensitive) == 0
                   ? std::make_unique<FailingPicker>(name, script)
                   : nullptr;
    });
    HostPicker &buildings = picker(u"SelPdmLpzd");
    EXPECT_FALSE(buildings.Show(0, 0, m_text, m_value));
    EXPECT_EQ(m_failures, QStringList{u"楼盘列表读取失败"_qs});
    set(buildings, u"lock", 1);
    EXPECT_TRUE(validate(buildings, u"x"_qs));
    EXPECT_TRUE(validate(buildings, u"y"_qs));
    EXPECT_EQ(script.asked.join(u','), u"validate SelPdmLpzd x lock=1,validate SelPdmLpzd y")
        << "parameters outlived their use";
    EXPECT_TRUE(validate(picker(u"pdmgy"), u"7"_qs));
}

TEST_F(PickersTest, HelpListsFillTheField)
{
    qzTxt_S field(u"qzTxt"_qs, 3);
    field.setText(u"已售"_qs);
    m_panels.willChoose(u"A1"_qs);
    EXPECT_TRUE(help(u"gy_sjzd_zt"_qs, field));
    EXPECT_EQ(m_panels.shownRows(), (QStringList{u"A1"_qs, u"A2"_qs})) << "entries of another kind are shown";
    EXPECT_EQ(m_panels.currentRow(), u"A2"_qs);
    EXPECT_EQ(field.Value().toString(), u"A1"_qs);
    EXPECT_EQ(field.Text(), u"有效"_qs);

    field.set_text_field_code(u"mtID"_qs);
    field.set_text_field_name(u"mtcode"_qs);
    m_panels.willChoose(u"02"_qs);
    EXPECT_TRUE(help(u"sy_usertype"_qs, field));
    EXPECT_EQ(m_panels.shownCaptions(), (QStringList{u"编号"_qs, u"部门"_qs}));
    EXPECT_EQ(field.Value().toString(), u"6"_qs);
    EXPECT_EQ(field.Text(), u"02"_qs);
}

TEST_F(PickersTest, EveryHelpCodeHasAListThatCanBeRead)
{
    qzTxt_S field(u"qzTxt"_qs, 0);
    const QString codes = u"gy_fx gy_fxrpt gy_cq sy_usertype gy_sjzd_yt gy_sjzd_lx gy_sjzd_cx gy_sjzd_jy "
                          "gy_sjzd_zt gy_sjzd_bsf gy_sjzd_wt gy_sjzd_ly gy_sjzd_xz gy_sjzd_zx "
                          "gy_sjzd_pt gy_sjzd_jj gy_sjzd_jd gy_sjzd_zj gy_sjzd_fk gy_sjzd_fy "
                          "gy_sjzd_kf gy_sjzd_gj gy_sjzd_wtdj"_qs;
    for (const QString &code : codes.split(u' ')) {
        m_panels.willChoose({});
        EXPECT_FALSE(help(code, field)) << code.toStdString();
    }
    EXPECT_EQ(m_failures, QStringList());
}

TEST_F(PickersTest, InlineListsAndCalendarsFillTheField)
{
    qzTxt_S field(u"qzTxt"_qs, 0);
    field.setText(u"本部"_qs);
    m_panels.willChoose(u"全部"_qs);
    EXPECT_TRUE(help(u"|本人;0|本部;1|全部;2"_qs, field));
    EXPECT_EQ(m_panels.currentRow(), u"本部"_qs);
    EXPECT_EQ(field.Value().toString(), u"2"_qs);
    EXPECT_EQ(field.Text(), u"全部"_qs);

    m_panels.willChooseDate(QDate(2026, 3, 5));
    EXPECT_TRUE(help(u"date"_qs, field));
    EXPECT_EQ(m_panels.presetDate(), loginDate) << "a text that is no date presets the business date";
    EXPECT_EQ(field.Text(), u"2026-3-5"_qs);
    m_panels.willChooseDate(std::nullopt);
    EXPECT_FALSE(help(u"date"_qs, field));
    EXPECT_EQ(m_panels.presetDate(), QDate(2026, 3, 5));
    EXPECT_EQ(field.Text(), u"2026-3-5"_qs);
}

TEST_F(PickersTest, HelpThatCannotBeShownIsReported)
{
    qzTxt_S field(u"qzTxt"_qs, 0);
    field.setText(u"as typed"_qs);
    EXPECT_FALSE(help(u"gy_unknown"_qs, field));
    EXPECT_FALSE(m_host->ShowHelp(u"gy_fx"_qs, {}, 1, 2, -1));
    execute(u"delete from pdmfx");
    m_connection->executeNative("drop table pdmfx");
    EXPECT_FALSE(help(u"gy_fx"_qs, field));
    EXPECT_EQ(m_failures.size(), 3);
    EXPECT_TRUE(m_failures.at(0).contains(u"gy_unknown"));
    EXPECT_TRUE(m_failures.at(2).contains(u"pdmfx")) << m_failures.at(2).toStdString();
    EXPECT_EQ(field.Text(), u"as typed"_qs);
}

} // namespace ebtq::test
