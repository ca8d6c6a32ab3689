#include "support/fatal_messages.h"

#include <QString>
#include <QtGlobal>

#include <gtest/gtest.h>

#include <iostream>

namespace ebtq::test {

namespace {

void handleMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    // Said of every window on the offscreen platform, whatever the program does.
    const bool ofPlatform = text.startsWith(u"This plugin does not support ");
    if (type == QtDebugMsg || type == QtInfoMsg || ofPlatform) {
        std::cerr << text.toStdString() << '\n';
        return;
    }
    ADD_FAILURE() << "unexpected message: " << text.toStdString();
}

} // namespace

void installFatalMessages()
{
    qInstallMessageHandler(handleMessage);
}

} // namespace ebtq::test
