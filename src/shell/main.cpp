#include "shell/guarded_application.h"
#include "shell/options.h"
#include "shell/program.h"

int main(int argc, char **argv)
{
    ebtq::shell::GuardedApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ebtq"));
    QCoreApplication::setApplicationVersion(QStringLiteral(EBTQ_VERSION));
    return ebtq::shell::runProgram(application, ebtq::shell::readOptions(application));
}
