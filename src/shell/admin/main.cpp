#include "shell/admin/commands.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return ebtq::admin::runCommand({argv + 1, argv + argc});
}
