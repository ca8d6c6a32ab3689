#include "shell/module_events.h"

#include "test_module.h"

#include "support/fatal_messages.h"

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

TEST(ModuleEvents, ArriveByNameWithTheirArguments)
{
    QStringList log;
    test::TestModule module(log);
    ModuleEvents events(module);
    QStringList seen;
    QObject::connect(&events, &ModuleEvents::Message, [&](const QString &text) { seen << text; });
    QObject::connect(&events, &ModuleEvents::ErrMessage,
                     [&](const QString &text, int level, const QString &title) {
                         seen << u"%1/%2/%3"_qs.arg(text).arg(level).arg(title);
                     });
    QObject::connect(&events, &ModuleEvents::RefreshGetGridStatus, [&] { seen << u"layout"_qs; });
    QObject::connect(&events, &ModuleEvents::UnLoad, [](bool &answer) { answer = false; });

    Q_EMIT module.Message(u"共加载3条记录"_qs);
    Q_EMIT module.ErrMessage(u"错误"_qs, 8, u"Fcxx"_qs);
    Q_EMIT module.RefreshGetGridStatus();
    bool answer = true;
    Q_EMIT module.UnLoad(answer);

    EXPECT_EQ(seen, QStringList({u"共加载3条记录"_qs, u"错误/8/Fcxx"_qs, u"layout"_qs}));
    EXPECT_FALSE(answer) << "the argument goes by reference";
}

TEST(ModuleEvents, AnEventOfAnotherShapeIsReportedAndLeftAlone)
{
    static QStringList warnings;
    test::OddModule module;
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { warnings << text; });
    ModuleEvents events(module);
    test::installFatalMessages();
    EXPECT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings.value(0).contains(u"Message(QDate)")) << warnings.value(0).toStdString();
    QObject::connect(&events, &ModuleEvents::Message, [] { FAIL(); });
    Q_EMIT module.Message(QDate(2026, 11, 22));
}

} // namespace
} // namespace ebtq::shell
