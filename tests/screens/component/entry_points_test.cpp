#include "component/component_library.h"
#include "contracts/host_contracts.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLibrary>
#include <QProcess>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

using namespace ebtq;

namespace {

/// The component library as a host finds it: a file and four names.
class EntryPoints : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(library.load()) << library.errorString().toStdString();
        getClassObject = resolve<DllGetClassObjectFunction>("DllGetClassObject");
        canUnloadNow = resolve<DllCanUnloadNowFunction>("DllCanUnloadNow");
        registerServer = resolve<DllRegisterServerFunction>("DllRegisterServer");
        unregisterServer = resolve<DllUnregisterServerFunction>("DllUnregisterServer");
        ASSERT_TRUE(getClassObject && canUnloadNow && registerServer && unregisterServer);
        ASSERT_EQ(getClassObject("EBTQ_S", &components), 0);
        ASSERT_TRUE(components);
    }
    template<class Function> Function resolve(const char *name)
    {
        return reinterpret_cast<Function>(library.resolve(name));
    }

    QLibrary library{QStringLiteral(EBTQ_COMPONENT_LIBRARY)};
    DllGetClassObjectFunction getClassObject = nullptr;
    DllCanUnloadNowFunction canUnloadNow = nullptr;
    DllRegisterServerFunction registerServer = nullptr;
    DllUnregisterServerFunction unregisterServer = nullptr;
    ComponentLibrary *components = nullptr;
};

TEST_F(EntryPoints, GiveTheLibraryForItsOwnNamesOnly)
{
    for (const auto &[name, result] : {std::pair<const char *, int>("EBTQ_S", 0),
                                       {"ebtq_s.fcxx", 0},
                                       {"EBTQ_S.Nothing", 1},
                                       {"", 1},
                                       {nullptr, 1}}) {
        ComponentLibrary *found = components;
        EXPECT_EQ(getClassObject(name, &found), result) << (name ? name : "null");
        EXPECT_EQ(found != nullptr, result == 0);
    }
    EXPECT_EQ(getClassObject("EBTQ_S", nullptr), 1);
}

TEST_F(EntryPoints, EveryClassIsMadeWithAContractAndAScreen)
{
    const QSet<QString> records{u"clsDz"_qs, u"clsLpzd"_qs, u"clsPdm"_qs};
    const QSet<QString> others{u"Cx_Gj"_qs,      u"Fcxx"_qs,     u"khxx"_qs,   u"PDMCq"_qs,
                               u"PDMFx"_qs,      u"PdmLpzd"_qs,  u"selPdm"_qs, u"selPdmDz"_qs,
                               u"selPdmLpzd"_qs, u"Splitter"_qs, u"YjTx"_qs};
    QSet<QString> names;
    for (const QString &fullName : components->classNames()) {
        SCOPED_TRACE(fullName.toStdString());
        const QString name = fullName.section(u'.', 1);
        names.insert(name);
        const std::unique_ptr<QObject> module = components->create(fullName);
        ASSERT_TRUE(module);
        if (records.contains(name)) {
            EXPECT_TRUE(module->setProperty(name == u"clsDz"    ? "s栋座名称"
                                            : name == u"clsPdm" ? "s名称"
                                                                : "s楼盘名称",
                                            u"甲"_qs));
            EXPECT_FALSE(components->createView(*module, nullptr));
            continue;
        }
        const bool isModule = name != u"Splitter";
        EXPECT_EQ(isModule, qobject_cast<IReportUI *>(module.get()) ||
                                qobject_cast<IFormUI *>(module.get()) ||
                                qobject_cast<IPickerUI *>(module.get()));
        EXPECT_EQ(isModule, qobject_cast<IDesignUI *>(module.get()) != nullptr);
        QWidget parent;
        QWidget *view = components->createView(*module, &parent);
        ASSERT_TRUE(view);
        EXPECT_EQ(view->parentWidget(), &parent);
    }
    EXPECT_EQ(names, records + others);
    EXPECT_FALSE(components->create(u"Fcxx"_qs));
    QObject foreign;
    EXPECT_FALSE(components->createView(foreign, nullptr));
}

TEST_F(EntryPoints, StaysLoadedWhileAnythingLives)
{
    EXPECT_EQ(canUnloadNow(), 0);
    std::unique_ptr<QObject> module = components->create(u"EBTQ_S.Fcxx"_qs);
    EXPECT_EQ(canUnloadNow(), 1);
    const std::unique_ptr<QWidget> view(components->createView(*module, nullptr));
    delete view->findChild<QWidget *>();
    EXPECT_EQ(canUnloadNow(), 1);
}

TEST_F(EntryPoints, RegistrationTellsWhereTheLibraryLies)
{
    const QTemporaryDir home;
    const QByteArray before = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.path()));
    const QString path = home.filePath(u"ebtq/components/EBTQ_S.json"_qs);
    EXPECT_EQ(unregisterServer(), 0) << "nothing to remove is no failure";
    ASSERT_EQ(registerServer(), 0);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QJsonObject entry = QJsonDocument::fromJson(file.readAll()).object();
    EXPECT_EQ(QFileInfo(entry.value(u"library").toString()), QFileInfo(library.fileName()));
    EXPECT_EQ(entry.value(u"classes").toVariant().toStringList(), components->classNames());
    EXPECT_EQ(unregisterServer(), 0);
    EXPECT_FALSE(QFile::exists(path));

    QFile blocker(home.filePath(u"file"_qs));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    qputenv("XDG_DATA_HOME", QFile::encodeName(blocker.fileName()));
    EXPECT_EQ(registerServer(), 1) << "a folder that cannot be made";
    before.isEmpty() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", before);
}

TEST_F(EntryPoints, ExportsNothingElse)
{
    QProcess nm;
    nm.start(u"nm"_qs, {u"-D"_qs, u"--defined-only"_qs, u"-j"_qs, library.fileName()});
    ASSERT_TRUE(nm.waitForFinished());
    QStringList names = QString::fromLatin1(nm.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    names.sort();
    EXPECT_EQ(names, QStringList({u"DllCanUnloadNow"_qs, u"DllGetClassObject"_qs, u"DllRegisterServer"_qs,
                                  u"DllUnregisterServer"_qs}));
}

} // namespace
