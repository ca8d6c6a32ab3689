#include "database/private_arguments.h"
#include "shell/admin/commands.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    ebtq::db::PrivateArguments arguments(argc, argv);
    const QCoreApplication application(arguments.count(), arguments.values());
    return ebtq::admin::runCommand({arguments.values() + 1, arguments.values() + arguments.count()});
}
