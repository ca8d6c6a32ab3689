#include "screens/look/look.h"
#include "support/fatal_messages.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    ebtq::test::installFatalMessages();
    ebtq::look::apply(application, ebtq::look::Scheme::Light);
    return RUN_ALL_TESTS();
}
