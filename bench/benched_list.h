#pragma once

#include "agency.h"
#include "library/lists/record_detail.h"
#include "library/lists/record_list.h"

namespace ebtq::bench {

/// The list that is measured, by Options::module, and what it is measured against.
class BenchedList
{
public:
    /// Opened and loaded, in the agency's host; throws when it cannot be. `agency` is made of sized().
    BenchedList(const Options &options, Agency &agency);

    /// An agency with `rows` records of the module.
    [[nodiscard]] static Options sized(Options options);

    [[nodiscard]] RecordList &module() { return *m_module; }
    [[nodiscard]] qzVSTabCtl &tabs() { return m_detail->qzVSTabCtl1(); }
    /// Loads the open tab for the record with this key.
    void showDetail(const QString &key) { m_detail->ShowDetail(key); }
    /// The grid of the tab with the matches.
    [[nodiscard]] VSFlexGrid &matches() { return *m_matches; }
    /// The column of the grid that the statement's first one fills.
    [[nodiscard]] int firstColumn() const { return m_firstColumn; }
    /// The list's statement written by hand for each engine, the fastest that was found: the same rows and
    /// cells, but for the date, which it leaves as stored.
    [[nodiscard]] const QByteArray &forSqlite() const { return m_forSqlite; }
    [[nodiscard]] const QByteArray &forServer() const { return m_forServer; }

private:
    void makeListings(Desktop &desktop);
    void makeCustomers(Desktop &desktop);

    std::unique_ptr<RecordList> m_module;
    RecordDetail *m_detail = nullptr;
    VSFlexGrid *m_matches = nullptr;
    int m_firstColumn = 0;
    QByteArray m_forSqlite;
    QByteArray m_forServer;
};

} // namespace ebtq::bench
