#include "database/private_arguments.h"
#include "shell/core_dumps.h"
#include "shell/guarded_application.h"
#include "shell/options.h"
#include "shell/program.h"

#include <exception>
#include <iostream>

int main(int argc, char **argv)
{
    ebtq::shell::forbidCoreDumps();
    ebtq::db::PrivateArguments arguments(argc, argv);
    ebtq::shell::GuardedApplication application(arguments.count(), arguments.values());
    QCoreApplication::setApplicationName(QStringLiteral("ebtq"));
    QCoreApplication::setApplicationVersion(QStringLiteral(EBTQ_VERSION));
    try {
        return ebtq::shell::runProgram(application, ebtq::shell::readOptions(application.arguments()));
    } catch (const std::exception &failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
