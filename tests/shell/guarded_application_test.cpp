#include "shell/guarded_application.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <stdexcept>

namespace ebtq::shell {
namespace {

TEST(GuardedApplication, AnEscapedExceptionEndsItsEventAndNotTheProgram)
{
    auto &application = static_cast<GuardedApplication &>(*qApp);
    QStringList reports;
    application.setFailureReport([&](const QString &text) { reports << text; });
    bool wentOn = false;
    QTimer::singleShot(0, [] { throw std::runtime_error("磁盘已满"); });
    QTimer::singleShot(0, [&] {
        wentOn = true;
        QCoreApplication::exit(7);
    });
    EXPECT_EQ(QCoreApplication::exec(), 7);
    application.setFailureReport({});
    EXPECT_TRUE(wentOn);
    ASSERT_EQ(reports.size(), 1);
    EXPECT_TRUE(reports.front().contains(u"磁盘已满"));
}

} // namespace
} // namespace ebtq::shell
