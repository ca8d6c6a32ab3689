#include "database/private_arguments.h"
#include "shell/core_dumps.h"
#include "shell/guarded_application.h"
#include "shell/options.h"
#include "shell/program.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <string_view>

namespace {

/// Options that only print must not need a display.
bool isOnlyPrinted(int argc, char **argv)
{
    constexpr std::string_view printing[] = {"-h", "--help", "-v", "--version"};
    return std::any_of(argv + 1, argv + argc, [&](const char *each) {
        return std::ranges::find(printing, each) != std::end(printing);
    });
}

} // namespace

int main(int argc, char **argv)
{
    ebtq::shell::forbidCoreDumps();
    ebtq::db::PrivateArguments arguments(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ebtq"));
    QCoreApplication::setApplicationVersion(QStringLiteral(EBTQ_VERSION));
    try {
        if (isOnlyPrinted(argc, argv)) {
            const QCoreApplication printer(arguments.count(), arguments.values());
            (void)ebtq::shell::readOptions(QCoreApplication::arguments());
        }
        ebtq::shell::GuardedApplication application(arguments.count(), arguments.values());
        return ebtq::shell::runProgram(application, ebtq::shell::readOptions(application.arguments()));
    } catch (const std::exception &failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
