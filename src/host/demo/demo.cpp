#include "host/demo/demo.h"

#include "contracts/host_contracts.h"
#include "database/schema/installer.h"
#include "host/demo/customers.h"
#include "host/demo/dictionaries.h"
#include "host/demo/listings.h"
#include "host/host_parameters.h"
#include "host/setup.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

void requireEmpty(db::Connection &connection)
{
    for (const QStringView table : {u"fyxx", u"fykh", u"fygj", u"pdmlpzd", u"pdmdq", u"pdmsjzd", u"pdmgy"}) {
        if (connection.query(u"select top 1 * from %1"_s.arg(table)).rowCount() != 0)
            throw Failure(u"数据库中已有数据（%1），示例数据只能写入空的数据库！"_s.arg(table));
    }
}

void writeUserParameters(db::Connection &connection, const Agent &manager)
{
    setParameter(connection, manager.userId, 12, u"mouseeventscrollrate"_s, u"3"_s);
}

} // namespace

void writeDemo(db::Connection &connection, const DemoOptions &options, const DemoProgress &progress)
{
    const DemoProgress report = progress ? progress : [](const QString &, int, int) {};
    prepareDatabase(connection);
    db::Transaction transaction(connection);
    requireEmpty(connection);
    Random random(options.seed);
    writeDictionaries(connection);
    const std::vector<Building> buildings = writePlaces(connection, random);
    const std::vector<Agent> agents = writeStaff(connection, random, options.passwordCost);
    writeUserParameters(connection, agents.front());
    const auto listings = writeListings(connection, options, buildings, agents, random, report);
    const auto customers = writeCustomers(connection, options, buildings, agents, random, report);
    writeFollowUps(connection, options, listings, customers, agents, random, report);
    writeAttachments(connection, listings, random);
    db::updateStatistics(connection);
    transaction.commit();
}

} // namespace ebtq::host
