#include "host/demo/calendar.h"

#include "host/bill_numbers.h"
#include "host/module_ids.h"

#include <algorithm>

namespace ebtq::host {

namespace {

constexpr int longestAge = 547; // eighteen months

QStringView prefixOf(int moduleId)
{
    const auto *entry = std::find_if(modules.begin(), modules.end(),
                                     [&](const ModuleEntry &module) { return module.id == moduleId; });
    return entry->prefix;
}

std::vector<QDate> sortedDates(int count, const QDate &today, Random &random)
{
    std::vector<QDate> dates;
    dates.reserve(static_cast<size_t>(count));
    for (int at = 0; at < count; ++at) {
        const double limit = random.between(0.4, 1.0);
        const double skewed = limit * random.fraction();
        dates.push_back(today.addDays(-static_cast<int>(skewed * longestAge)));
    }
    std::sort(dates.begin(), dates.end());
    return dates;
}

bool isSameMonth(const QDate &left, const QDate &right)
{
    return left.year() == right.year() && left.month() == right.month();
}

} // namespace

std::vector<Document> makeDocuments(db::Connection &connection, int moduleId, int count, const QDate &today,
                                    Random &random)
{
    const std::vector<QDate> dates = sortedDates(count, today, random);
    std::vector<Document> documents;
    documents.reserve(dates.size());
    int number = 0;
    for (size_t at = 0; at < dates.size(); ++at) {
        const QDate &made = dates[at];
        number = at > 0 && isSameMonth(made, dates[at - 1]) ? number + 1 : 1;
        const QDate changed = made.addDays(random.chance(40) ? random.between(1, 60) : 0);
        documents.push_back({billCode(prefixOf(moduleId), made, number), made, qMin(changed, today)});
        if (at + 1 == dates.size() || !isSameMonth(made, dates[at + 1]))
            setLastBillNumber(connection, moduleId, made, number);
    }
    return documents;
}

} // namespace ebtq::host
