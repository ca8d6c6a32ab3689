#pragma once

#include <QString>

namespace ebtq::bench {

struct Options
{
    int rows = 100'000;
    int rounds = 5;
    int customers = 600;
    int followUps = 3000;
    int clients = 32;
    int seconds = 20;
    int buildings = 20'000;
    QString module = QStringLiteral("listings"); ///< or "customers": whose editor is measured
    QString database; ///< an existing one or a server's URL; empty: a temporary one is made
};

/// Opening the listing list, against the hand-written statement and against a Qt SQL query model.
int listBenchmark(const Options &options);
/// The same on a server, against the hand-written statement fetched through libpq with every value read.
int serverListBenchmark(const Options &options);
/// The search that hides rows, exact and without regard to case, against one plain pass over the same bytes:
/// the faster of two. A line for each text, then the worst ratios; they are to stay below 1.5 and 3.
int searchBenchmark(const Options &options);
/// Changing the current row with each tab of the detail active, against that tab's bare statements.
int rowChangeBenchmark(const Options &options);
/// The customers of listings of several kinds, against the bare statements; with the engine's plan of each.
/// On either engine.
int matchBenchmark(const Options &options);
/// The newest of `rows` follow-ups, those of listings and of customers alone, and 100,000 of them, against
/// hand-written statements and, for the two kinds, against the newest of all. On either engine. `ratio` is
/// the worst measure divided by its limit.
int followUpsBenchmark(const Options &options);
/// The reminders that are due among `rows` follow-ups, against the hand-written statement, with the engine's
/// plan. On either engine.
int remindersBenchmark(const Options &options);
/// Opening the editor for a listing or a customer, against its bare statements; the building of its widgets
/// beside it.
int editorBenchmark(const Options &options);
/// Translating the list statement, against SQLite preparing the translated text.
int dialectBenchmark(const Options &options);

/// Restoring a layout with groups and totals, against a plain sum over a column.
int layoutBenchmark(const Options &options);
/// Exporting the loaded list as CSV, against writing the same bytes from memory; XLSX beside it.
int exportBenchmark(const Options &options);
/// Filling a tree of buildings on the screen again, against filling a bare QStandardItemModel; beside it
/// opening all of it, search, filter and clearing, each with how its time grows with the number of nodes.
int treeBenchmark(const Options &options);
/// Loading the dictionary of buildings, against its statements and filling a bare QStandardItemModel; saving a
/// building with 2,000 changed blocks, against the save's bare statements in one transaction. The ratios are to
/// stay below 2 and 1.3.
int dictionaryBenchmark(const Options &options);
/// The program's start as a process until the list of `rows` listings is painted, against that of a program
/// whose window is empty; the check of the password, which is slow by intention, is part of it and told beside
/// it. Needs both programs beside this one.
int startBenchmark(const Options &options);
/// A file of 50 MB into a row and out of it, against a plain file written to the disk and copied, on a server
/// against a bare parameter and a bare cell; with the memory that it takes, as a share of the file. `ratio` is
/// the worst measure divided by its limit.
int attachmentsBenchmark(const Options &options);
/// Agents who open lists and save at once on a server, against its simple-update rate. Fails when anything of
/// what they were told to be saved is not there.
int clientsBenchmark(const Options &options);

} // namespace ebtq::bench
