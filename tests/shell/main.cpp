#include "screens/look/look.h"
#include "shell/guarded_application.h"
#include "support/fatal_messages.h"

#include <QLocale>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    ebtq::shell::GuardedApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    ::testing::InitGoogleTest(&argc, argv);
    ebtq::test::installFatalMessages();
    ebtq::look::apply(application, ebtq::look::Scheme::Light);
    return RUN_ALL_TESTS();
}
