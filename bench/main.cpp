#include "benchmarks.h"
#include "database/private_arguments.h"
#include "editor_widgets.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <iostream>

namespace {

struct Command
{
    const char *name;
    const char *text;
    int (*run)(const ebtq::bench::Options &);
};

constexpr Command commands[] = {
    {"list", "open the listing list", ebtq::bench::listBenchmark},
    {"search", "search in the loaded rows", ebtq::bench::searchBenchmark},
    {"rowchange", "go down the list with each tab of the detail open", ebtq::bench::rowChangeBenchmark},
    {"match", "find the customers whom a listing suits, or the listings that suit a customer",
     ebtq::bench::matchBenchmark},
    {"followups", "list follow-ups, of which there are --rows", ebtq::bench::followUpsBenchmark},
    {"reminders", "list the reminders that are due among --rows follow-ups", ebtq::bench::remindersBenchmark},
    {"editor", "open the editor for a listing or, with --module customers, a customer",
     ebtq::bench::editorBenchmark},
    {"dialect", "translate the list statement", ebtq::bench::dialectBenchmark},
    {"layout", "restore a layout with sums by two groups", ebtq::bench::layoutBenchmark},
    {"export", "export the loaded list", ebtq::bench::exportBenchmark},
    {"tree", "fill a tree of buildings, open, search and clear it", ebtq::bench::treeBenchmark},
    {"dictionary", "load the buildings, and save one with 2,000 blocks", ebtq::bench::dictionaryBenchmark},
    {"start", "start the program until its first list is painted", ebtq::bench::startBenchmark},
    {"attachments", "a large file into a row and out of it", ebtq::bench::attachmentsBenchmark},
    {"clients", "agents at one server, in bases of their own", ebtq::bench::clientsBenchmark},
};

QString commandHelp()
{
    QString text;
    for (const Command &command : commands)
        text += QStringLiteral("\n  %1: %2").arg(QLatin1String(command.name), QLatin1String(command.text));
    return text;
}

int runCommand(const QString &name, const ebtq::bench::Options &options)
{
    for (const Command &command : commands) {
        if (name == QLatin1String(command.name))
            return command.run(options);
    }
    std::cerr << "unknown benchmark: " << name.toStdString() << commandHelp().toStdString() << '\n';
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    ebtq::db::PrivateArguments arguments(argc, argv);
    const auto application = ebtq::bench::makeApplication(arguments.count(), arguments.values());
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Figures as ratios against a baseline of the same run, as JSON lines."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("benchmark"), QStringLiteral("one of:") + commandHelp());
    const QCommandLineOption rows(QStringLiteral("rows"),
                                  QStringLiteral("listings of the temporary database"), QStringLiteral("n"),
                                  QStringLiteral("100000"));
    const QCommandLineOption customers(QStringLiteral("customers"),
                                       QStringLiteral("customers of the temporary database"),
                                       QStringLiteral("n"), QStringLiteral("600"));
    const QCommandLineOption rounds(QStringLiteral("rounds"), QStringLiteral("measured rounds"),
                                    QStringLiteral("n"), QStringLiteral("5"));
    const QCommandLineOption clients(QStringLiteral("n"), QStringLiteral("agents at once"),
                                     QStringLiteral("n"), QStringLiteral("32"));
    const QCommandLineOption seconds(QStringLiteral("seconds"), QStringLiteral("how long agents work"),
                                     QStringLiteral("n"), QStringLiteral("20"));
    const QCommandLineOption buildings(QStringLiteral("buildings"), QStringLiteral("buildings of the tree"),
                                       QStringLiteral("n"), QStringLiteral("20000"));
    const QCommandLineOption database(QStringLiteral("db"),
                                      QStringLiteral("an existing database, or an empty base on a"
                                                     " server that is filled, instead"),
                                      QStringLiteral("file or URL"));
    const QCommandLineOption module(
        QStringLiteral("module"),
        QStringLiteral(
            "whose list, tabs, matches or editor are measured: listings, or customers, of which there"
            " are --rows then"),
        QStringLiteral("name"), QStringLiteral("listings"));
    parser.addOptions({rows, customers, rounds, clients, seconds, buildings, database, module});
    parser.process(*application);
    ebtq::bench::Options options;
    options.rows = parser.value(rows).toInt();
    options.rounds = parser.value(rounds).toInt();
    options.database = parser.value(database);
    options.module = parser.value(module);
    options.customers = parser.value(customers).toInt();
    options.clients = parser.value(clients).toInt();
    options.buildings = parser.value(buildings).toInt();
    options.seconds = parser.value(seconds).toInt();
    if (parser.positionalArguments().size() != 1 || options.rows < 1 || options.rounds < 1 ||
        options.customers < 0 || options.clients < 1 || options.buildings < 1 || options.seconds < 1)
        parser.showHelp(2);
    try {
        return runCommand(parser.positionalArguments().constFirst(), options);
    } catch (const std::exception &error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
