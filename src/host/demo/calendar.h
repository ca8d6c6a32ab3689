#pragma once

#include "database/connection.h"
#include "host/demo/random.h"

#include <QDate>

#include <vector>

namespace ebtq::host {

/// When the documents of a sample were made.
struct Document
{
    QString number;
    QDate made;
    QDate changed; ///< last change, up to two months later
};

/// Documents of the 18 months up to `today`, more of them in the late months, in the order of their numbers;
/// the module's counters stand at the last number of each month.
[[nodiscard]] std::vector<Document> makeDocuments(db::Connection &connection, int moduleId, int count,
                                                  const QDate &today, Random &random);

} // namespace ebtq::host
