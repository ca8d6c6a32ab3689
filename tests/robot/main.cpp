#include "robot.h"
#include "watcher.h"

#include "host/module_ids.h"
#include "shell/guarded_application.h"
#include "shell/main_window.h"
#include "shell/program.h"

#include <QCommandLineParser>
#include <QElapsedTimer>

#include <array>
#include <csignal>
#include <cstdlib>
#include <iostream>

#include <execinfo.h>
#include <unistd.h>

using namespace ebtq;
using namespace Qt::StringLiterals;

namespace {

constexpr int longestRun = 60; // seconds with one seed: a finding is the easier to repeat the shorter its run

/// Whatever Qt complains about is a finding.
void endWithMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (text.startsWith(u"This plugin does not support "))
        return; // the platform without a screen
    std::cerr << text.toStdString() << std::endl;
    if (type != QtDebugMsg && type != QtInfoMsg)
        std::abort();
}

#ifndef __SANITIZE_ADDRESS__ // which tells more by itself
void printStack(int number)
{
    std::array<void *, 60> frames{};
    ::backtrace_symbols_fd(frames.data(), ::backtrace(frames.data(), int(frames.size())), STDERR_FILENO);
    ::raise(number);
}

/// A fault that comes once in a thousand runs is seldom met again: where it was must stand in the log. The
/// stack of its own is for the case that the program's is full.
void printStackOfCrash()
{
    static std::array<char, 65'536> room;
    const stack_t stack{.ss_sp = room.data(), .ss_flags = 0, .ss_size = room.size()};
    ::sigaltstack(&stack, nullptr);
    struct sigaction action
    {};
    action.sa_handler = printStack;
    action.sa_flags = int(SA_ONSTACK | SA_RESETHAND);
    for (const int number : {SIGSEGV, SIGBUS, SIGFPE, SIGABRT})
        ::sigaction(number, &action, nullptr);
}
#else
void printStackOfCrash() {}
#endif

int runChild(int argc, char **argv)
{
    printStackOfCrash();
    shell::GuardedApplication application(argc, argv);
    qInstallMessageHandler(endWithMessage);
    const QStringList arguments = QCoreApplication::arguments();
    QCoreApplication::setApplicationName(u"ebtq"_s);
    const shell::Options options{.database = arguments[4],
                                 .user = u"演示"_s,
                                 .tour = {},
                                 .library = QStringLiteral(EBTQ_COMPONENT_LIBRARY),
                                 .dark = false};
    return shell::runProgram(application, options, [&](shell::MainWindow &window) {
        const quint32 seed = arguments[2].toUInt();
        window.openModule(host::modules.at(seed % host::modules.size()).id); // chance seldom leads to all
        return robot::Robot(seed, arguments[3].toInt(), window, arguments[5]).work();
    });
}

int runWatcher(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{u"seed"_s, u"Begin with this seed."_s, u"number"_s},
                       {u"seconds"_s, u"How long."_s, u"number"_s, u"0"_s},
                       {u"minutes"_s, u"How long."_s, u"number"_s, u"0"_s}});
    parser.process(application);
    const int seconds = parser.value(u"seconds"_s).toInt() + 60 * parser.value(u"minutes"_s).toInt();
    quint32 seed =
        parser.isSet(u"seed"_s) ? parser.value(u"seed"_s).toUInt() : QRandomGenerator::global()->generate();
    QElapsedTimer timer;
    timer.start();
    bool isFine = true;
    do {
        const int left = std::max(1, seconds - static_cast<int>(timer.elapsed() / 1000));
        const robot::Run run{seed++, std::min(left, longestRun)};
        std::cout << "seed " << run.seed << std::endl;
        isFine = robot::watch(run) && isFine;
    } while (timer.elapsed() < seconds * 1000LL);
    return isFine ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    return argc == 6 && qstrcmp(argv[1], "--child") == 0 ? runChild(argc, argv) : runWatcher(argc, argv);
}
