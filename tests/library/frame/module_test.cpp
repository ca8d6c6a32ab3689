#include "library/controls/check_box.h"
#include "library/controls/label.h"
#include "library/frame/focus_helper.h"
#include "library/frame/module.h"
#include "library/support/agency_test.h"

#include <new>

using namespace ebtq;

namespace {

class SmallModule : public Module
{
public:
    explicit SmallModule(Desktop &desktop)
        : Module(u"Small"_qs, desktop)
    {
        controls().add<CheckBox>(u"Chk"_qs, 0);
        controls().add<CheckBox>(u"Chk"_qs, 1);
        controls().add<Label>(u"lblSearch"_qs);
    }
    using Module::app;
    using Module::setApp;
    using Module::trapped;
    using Module::trappedWithoutDatabase;
    QStringList errors;

protected:
    void raiseError(const QString &message, int level, const QString &title) override
    {
        errors.append(u"%1|%2|%3"_qs.arg(message).arg(level).arg(title));
    }
};

class ModuleTest : public test::AgencyTest
{
protected:
    SmallModule module{desktop};
};

TEST_F(ModuleTest, TrapReportsWhateverIsThrownAndAlwaysReleases)
{
    module.setApp(&app);
    EXPECT_TRUE(module.trapped(u"-->Good::", [] { return true; }));
    EXPECT_FALSE(module.trapped(u"-->No::", [] { return false; }));
    EXPECT_EQ(module.errors, QStringList());
    EXPECT_FALSE(module.trapped(u"-->Bad::", []() -> bool { throw Failure(u"表 fyxx 不存在"_qs); }));
    EXPECT_FALSE(module.trapped(u"-->Full::", []() -> bool { throw std::bad_alloc(); }));
    ASSERT_EQ(module.errors.size(), 2);
    EXPECT_EQ(module.errors[0], u"Small-->Bad::表 fyxx 不存在|8|EBTQ_S"_qs);
    EXPECT_TRUE(module.errors[1].startsWith(u"Small-->Full::")) << module.errors[1].toStdString();
    EXPECT_EQ(app.releases, 4);

    module.errors.clear();
    EXPECT_TRUE(module.trappedWithoutDatabase(u"-->Good::", [] { return true; }));
    EXPECT_FALSE(
        module.trappedWithoutDatabase(u"-->Bad::", []() -> bool { throw Failure(u"第 3 行不存在"_qs); }));
    module.setApp(nullptr);
    EXPECT_FALSE(module.trapped(u"-->Early::", [&] { return module.app().Db().Release(); }));
    EXPECT_EQ(module.errors, QStringList({u"Small-->Bad::第 3 行不存在|8|EBTQ_S"_qs,
                                          u"Small-->Early::模块尚未初始化！|8|EBTQ_S"_qs}));
    EXPECT_EQ(app.releases, 4) << "work on loaded rows releases nothing";
}

TEST_F(ModuleTest, DesignerSetsTheBackgroundAlone)
{
    int changes = 0;
    QObject::connect(&module, &Module::backColorChanged, [&] { ++changes; });
    DesignParameters parameters;
    parameters.Item(u"forecolor"_qs).Value = 255;
    module.IDesignUI_Parameters(nullptr);
    module.IDesignUI_Parameters(&parameters);
    EXPECT_EQ(module.BackColor(), -1);
    parameters.Item(u"BackColor"_qs).Value = u"12648447"_qs;
    module.IDesignUI_Parameters(&parameters);
    module.IDesignUI_Parameters(&parameters);
    EXPECT_EQ(module.BackColor(), 0xC0FFFF);
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(module.IDesignUI_Parameters().isValid());
}

TEST_F(ModuleTest, DesignerWalksTheControls)
{
    QStringList seen;
    for (const auto &control : module.IDesignUI_Controls())
        seen.append(u"%1 %2 %3"_qs.arg(control->TypeName(), control->Name()).arg(control->Index()));
    EXPECT_EQ(seen, QStringList({u"CheckBox Chk 0"_qs, u"CheckBox Chk 1"_qs, u"Label lblSearch -1"_qs}));
    const ControlCollection &controls = module.IDesignUI_Controls();
    EXPECT_EQ(controls.find(u"chk"_qs, 1), &controls.at(1));
    EXPECT_EQ(controls.find(u"Chk"_qs), nullptr);
    EXPECT_EQ(controls.find(u"lblsearch"_qs), &controls.at(2));
    EXPECT_NE(qobject_cast<IDesignUI *>(static_cast<QObject *>(&module)), nullptr);
}

TEST(ParameterListTest, NamesCompareWithoutRegardToCase)
{
    ParameterList list;
    EXPECT_EQ(list.text(u"Lock"_qs), QString());
    EXPECT_FALSE(list.Exists(u"Lock"_qs)) << "asking makes no parameter";
    list.Item(u"Lock"_qs).Value = 1;
    list.Item(u"地区"_qs).Value = u" 天河区 "_qs;
    list.Item(u"LOCK"_qs).Value = 2.0;
    EXPECT_EQ(list.text(u"lock"_qs), u"2"_qs);
    EXPECT_EQ(list.text(u"地区"_qs), u"天河区"_qs);
    list.Clear();
    EXPECT_FALSE(list.Exists(u"地区"_qs));
}

TEST(FocusHelperTest, EnterAndArrowsMoveTheFocus)
{
    FocusHelper helper;
    QString moves;
    QObject::connect(&helper, &FocusHelper::moveRequested,
                     [&](bool forward) { moves += forward ? u'>' : u'<'; });
    for (const int key : {13, 40, 38, 37, 39, 9, 65})
        helper.SendKey(13, key);
    EXPECT_EQ(moves, u">><"_qs);
    Label label(u"lbl"_qs);
    int requests = 0;
    QObject::connect(&label, &Control::focusRequested, [&] { ++requests; });
    helper.SetFocus(label);
    EXPECT_EQ(requests, 1);
}

} // namespace
