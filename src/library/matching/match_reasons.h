#pragma once

#include "database/values/sql_text.h"
#include "library/controls/flex_grid.h"
#include "library/lists/record_detail.h"

#include <vector>

namespace ebtq {

/// Why records suit a request, or a listing, and others do not: how many meet each criterion, and those that
/// fail just one. A criterion is one bound of the four measures that matching compares. It holds no name,
/// address or telephone number, so it needs no right beyond the list's.
class MatchReasons : public QObject, private ModulePart
{
    Q_OBJECT

public:
    enum class Of : quint8 {
        Customer, ///< the listings that suit a request; a bound of 0 is none
        Listing,  ///< the customers whom a listing suits; bounds count as they are stored
    };
    enum CriterionColumn : int { Criterion, Alone, AllBut };
    /// Near misses at most.
    static constexpr int mostMisses = 200;

    MatchReasons(Module &module, Of of);

    /// Reads them for the record with this key and shows the panel until it is closed. A message says when
    /// there is no such record. A failure is raised by the module.
    void show(const QString &id);

    /// What is looked at, as "KY2026110001：共 2400 套房源".
    [[nodiscard]] const QString &title() const { return m_title; }
    /// What the list of near misses leaves out or has none of; empty otherwise.
    [[nodiscard]] const QString &remark() const { return m_remark; }
    /// A row for each criterion.
    [[nodiscard]] VSFlexGrid &criteria() { return m_criteria; }
    /// Records that fail one criterion only, which the last column names with both numbers.
    [[nodiscard]] VSFlexGrid &misses() { return m_misses; }

private:
    struct Bound;
    bool read(const QString &id);
    void setUpGrids();
    void readCounts(const std::vector<Bound> &bounds);
    void showCounts(const std::vector<Bound> &bounds, const RowBlock &counts);
    void readMisses(const std::vector<Bound> &bounds);
    [[nodiscard]] std::vector<Bound> boundsOf(const DetailRecord &record) const;
    [[nodiscard]] QString reason(const Bound &bound, const QString &found) const;

    Of m_of;
    QString m_title;
    QString m_remark;
    VSFlexGrid m_criteria{QStringLiteral("VsCriteria")};
    VSFlexGrid m_misses{QStringLiteral("VsMisses")};
};

} // namespace ebtq
