#include "shell/module_events.h"

#include "test_module.h"

#include "support/fatal_messages.h"

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

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
