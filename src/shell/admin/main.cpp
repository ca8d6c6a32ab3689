#include "shell/admin/commands.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return ebtq::admin::runCommand(QCoreApplication::arguments().mid(1));
}
