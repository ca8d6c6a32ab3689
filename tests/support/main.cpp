#include "support/fatal_messages.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    ebtq::test::installFatalMessages();
    return RUN_ALL_TESTS();
}
