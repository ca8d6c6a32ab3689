#include "shell/start/choose_database.h"

#include "contracts/host_contracts.h"
#include "shell/sign_in.h"
#include "shell/start/recent_databases.h"
#include "shell/start/start_wizard.h"

namespace ebtq::shell {

namespace {

std::unique_ptr<db::Connection> run(StartWizard &wizard)
{
    if (wizard.exec() != QDialog::Accepted)
        return nullptr;
    if (const QString user = wizard.draft().userName(); !user.isEmpty())
        rememberUser(user);
    return openDatabase(wizard.draft().location());
}

std::unique_ptr<db::Connection> askAfterFailure(const QString &location, bool isNamed, const QString &failure)
{
    StartWizard wizard(dataFolder(), recentDatabases(), failure);
    const bool isUpgraded = wizard.beginWithUpgrade(location);
    if (isNamed && !isUpgraded)
        throw Failure(failure);
    return run(wizard);
}

} // namespace

std::unique_ptr<db::Connection> askForDatabase()
{
    StartWizard wizard(dataFolder(), recentDatabases());
    return run(wizard);
}

std::unique_ptr<db::Connection> chooseDatabase(const Options &options)
{
    const bool isNamed = !options.database.isEmpty();
    const bool canAsk = options.tour.isEmpty() && !hasPassword();
    const QString location = isNamed ? options.database : recentDatabases().value(0, defaultDatabase());
    if (canAsk && !isNamed && !isThere(location))
        return askForDatabase();
    try {
        return openDatabase(location);
    } catch (const std::exception &failure) {
        if (!canAsk)
            throw;
        return askAfterFailure(location, isNamed, QString::fromUtf8(failure.what()));
    }
}

} // namespace ebtq::shell
