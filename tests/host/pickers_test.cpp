#include "host/host_fixture.h"

#include "library/controls/field_control.h"

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
        m_value = QStringLiteral("old");
        m_text = QStringLiteral("old");
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
    struct Case
    {
        const char16_t *picker;
        QString typedText;
        QString value;
        QString text;
    };
    const Case cases[] = {
        {u"pdmdq", QStringLiteral("010102"), QStringLiteral("4"), QStringLiteral("清水湾")},
        {u"PdmDq", QStringLiteral("石桥头"), QStringLiteral("3"), QStringLiteral("石桥头")},
        {u"pdmgy", QStringLiteral("amy lee"), QStringLiteral("12"), QStringLiteral("Amy Lee")},
        {u"pdmgy", QStringLiteral(" 7 "), QStringLiteral("7"), QStringLiteral("陈晓雯")},
        {u"pdmgy", QStringLiteral("陈"), {}, {}},
        {u"gy_fx", QStringLiteral("三房"), QStringLiteral("02"), QStringLiteral("三房")},
        {u"gy_fxrpt", QStringLiteral("2-1-1-1"), QStringLiteral("01"), QStringLiteral("2-1-1-1")},
        {u"sy_usertype", QStringLiteral("营业二部"), QStringLiteral("6"), QStringLiteral("营业二部")},
        {u"sy_usertype", QStringLiteral("x' or '1'='1"), {}, {}},
    };
    for (const Case &wanted : cases) {
        SCOPED_TRACE((QString::fromUtf16(wanted.picker) + u'|' + wanted.typedText).toStdString());
        ASSERT_TRUE(picker(wanted.picker).Ready());
        EXPECT_EQ(validate(picker(wanted.picker), wanted.typedText), !wanted.value.isEmpty());
        EXPECT_EQ(m_value.toString(), wanted.value);
        EXPECT_EQ(m_text, wanted.text);
    }
    EXPECT_EQ(m_failures.size(), 1) << "the apostrophe alone is a failure";
    EXPECT_EQ(m_host->LastError().Description, m_failures.constFirst());
}

TEST_F(PickersTest, OnlyDetailDistrictsCountWhenAskedFor)
{
    HostPicker &districts = picker(u"pdmdq");
    EXPECT_TRUE(validate(districts, QStringLiteral("锦溪区")));
    set(districts, u"pdmsfmx", 1);
    EXPECT_FALSE(validate(districts, QStringLiteral("锦溪区")));
    EXPECT_EQ(m_text, QString());

    set(districts, u"pdmsfmx", 1);
    m_text = QStringLiteral("石桥头");
    EXPECT_TRUE(show(districts, QStringLiteral("010102")));
    EXPECT_EQ(m_panels.shownRows().size(), 4) << "a tree needs the districts above, too";
    EXPECT_EQ(m_panels.currentRow(), QStringLiteral("010101"));
    EXPECT_GE(m_panels.levelCodeColumn(), 0);
    EXPECT_GE(m_panels.choosableColumn(), 0);
    EXPECT_EQ(m_value.toString(), QStringLiteral("4"));
    EXPECT_EQ(m_text, QStringLiteral("清水湾"));

    EXPECT_TRUE(show(districts, QStringLiteral("0101")));
    EXPECT_EQ(m_panels.choosableColumn(), -1);
}

TEST_F(PickersTest, LeavingThePanelLeavesTheValues)
{
    m_value = 99;
    m_text = QStringLiteral("as typed");
    EXPECT_FALSE(show(picker(u"pdmgy"), QString()));
    EXPECT_EQ(m_value, QVariant(99));
    EXPECT_EQ(m_text, QStringLiteral("as typed"));
}

TEST_F(PickersTest, UnknownPickerIsNeverReady)
{
    HostPicker &absent = picker(u"无此选择器");
    EXPECT_FALSE(absent.Ready());
    EXPECT_FALSE(validate(absent, QStringLiteral("x")));
    EXPECT_EQ(m_text, QString());
    EXPECT_FALSE(absent.Show(0, 0, m_text, m_value));
}

TEST_F(PickersTest, PickersOfTheComponentLibraryComeFirstAndMayFail)
{
    class FailingPicker : public HostPicker
    {
    public:
        ParameterList &Parameters() override { return m_parameters; }
        bool Show(int, int, QString &, QVariant &, int, const QString &) override
        {
            throw Failure(QStringLiteral("楼盘列表读取失败"));
        }
        std::shared_ptr<const PickedRow> Objects() const override { return nullptr; }
        bool Validate(const QString &, const QString &, const QString &, const QString &, QVariant &,
                      QString &) override
        {
            return m_parameters.Exists(QStringLiteral("lock"));
        }
        bool Ready(int) const override { return true; }

    private:
        ParameterList m_parameters;
    };
    m_host->setPickerFactory([](const QString &name) -> std::unique_ptr<HostPicker> {
        return name.compare(u"selpdmlpzd", Qt::CaseInsensitive) == 0 ? std::make_unique<FailingPicker>()
                                                                     : nullptr;
    });
    HostPicker &buildings = picker(u"SelPdmLpzd");
    EXPECT_FALSE(buildings.Show(0, 0, m_text, m_value));
    EXPECT_EQ(m_failures, QStringList{QStringLiteral("楼盘列表读取失败")});
    set(buildings, u"lock", 1);
    EXPECT_TRUE(validate(buildings, QStringLiteral("x")));
    EXPECT_FALSE(validate(buildings, QStringLiteral("x"))) << "parameters outlived their use";
    EXPECT_TRUE(validate(picker(u"pdmgy"), QStringLiteral("7")));
}

TEST_F(PickersTest, HelpListsFillTheField)
{
    qzTxt_S field(QStringLiteral("qzTxt"), 3);
    field.setText(QStringLiteral("已售"));
    m_panels.willChoose(QStringLiteral("A1"));
    EXPECT_TRUE(help(QStringLiteral("gy_sjzd_zt"), field));
    EXPECT_EQ(m_panels.shownRows(), (QStringList{QStringLiteral("A1"), QStringLiteral("A2")}))
        << "entries of another kind are shown";
    EXPECT_EQ(m_panels.currentRow(), QStringLiteral("A2"));
    EXPECT_EQ(field.Value().toString(), QStringLiteral("A1"));
    EXPECT_EQ(field.Text(), QStringLiteral("有效"));

    field.set_text_field_code(QStringLiteral("mtID"));
    field.set_text_field_name(QStringLiteral("mtcode"));
    m_panels.willChoose(QStringLiteral("02"));
    EXPECT_TRUE(help(QStringLiteral("sy_usertype"), field));
    EXPECT_EQ(m_panels.shownCaptions(), (QStringList{QStringLiteral("编号"), QStringLiteral("部门")}));
    EXPECT_EQ(field.Value().toString(), QStringLiteral("6"));
    EXPECT_EQ(field.Text(), QStringLiteral("02"));
}

TEST_F(PickersTest, EveryHelpCodeHasAListThatCanBeRead)
{
    qzTxt_S field(QStringLiteral("qzTxt"), 0);
    const QString codes =
        QStringLiteral("gy_fx gy_fxrpt gy_cq sy_usertype gy_sjzd_yt gy_sjzd_lx gy_sjzd_cx gy_sjzd_jy "
                       "gy_sjzd_zt gy_sjzd_bsf gy_sjzd_wt gy_sjzd_ly gy_sjzd_xz gy_sjzd_zx "
                       "gy_sjzd_pt gy_sjzd_jj gy_sjzd_jd gy_sjzd_zj gy_sjzd_fk gy_sjzd_fy "
                       "gy_sjzd_kf gy_sjzd_gj gy_sjzd_wtdj");
    for (const QString &code : codes.split(u' ')) {
        m_panels.willChoose({});
        EXPECT_FALSE(help(code, field)) << code.toStdString();
    }
    EXPECT_EQ(m_failures, QStringList());
}

TEST_F(PickersTest, InlineListsAndCalendarsFillTheField)
{
    qzTxt_S field(QStringLiteral("qzTxt"), 0);
    field.setText(QStringLiteral("本部"));
    m_panels.willChoose(QStringLiteral("全部"));
    EXPECT_TRUE(help(QStringLiteral("|本人;0|本部;1|全部;2"), field));
    EXPECT_EQ(m_panels.currentRow(), QStringLiteral("本部"));
    EXPECT_EQ(field.Value().toString(), QStringLiteral("2"));
    EXPECT_EQ(field.Text(), QStringLiteral("全部"));

    m_panels.willChooseDate(QDate(2026, 3, 5));
    EXPECT_TRUE(help(QStringLiteral("date"), field));
    EXPECT_EQ(m_panels.presetDate(), loginDate) << "a text that is no date presets the business date";
    EXPECT_EQ(field.Text(), QStringLiteral("2026-3-5"));
    m_panels.willChooseDate(std::nullopt);
    EXPECT_FALSE(help(QStringLiteral("date"), field));
    EXPECT_EQ(m_panels.presetDate(), QDate(2026, 3, 5));
    EXPECT_EQ(field.Text(), QStringLiteral("2026-3-5"));
}

TEST_F(PickersTest, HelpThatCannotBeShownIsReported)
{
    qzTxt_S field(QStringLiteral("qzTxt"), 0);
    field.setText(QStringLiteral("as typed"));
    EXPECT_FALSE(help(QStringLiteral("gy_unknown"), field));
    EXPECT_FALSE(m_host->ShowHelp(QStringLiteral("gy_fx"), {}, 1, 2, -1));
    execute(u"delete from pdmfx");
    m_connection->executeNative("drop table pdmfx");
    EXPECT_FALSE(help(QStringLiteral("gy_fx"), field));
    EXPECT_EQ(m_failures.size(), 3);
    EXPECT_TRUE(m_failures.at(0).contains(u"gy_unknown"));
    EXPECT_TRUE(m_failures.at(2).contains(u"pdmfx")) << m_failures.at(2).toStdString();
    EXPECT_EQ(field.Text(), QStringLiteral("as typed"));
}

} // namespace ebtq::test
