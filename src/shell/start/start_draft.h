#pragma once

#include "database/schema/identity.h"
#include "database/transfer/whole_file.h"
#include "host/start/agency.h"

#include <QString>

namespace ebtq::shell {

/// A server's database in fields, as people know them.
struct ServerAddress
{
    QString host;
    int port = defaultPort;
    QString base;
    QString user;
    QString password;

    static constexpr int defaultPort = 5432;
    /// With whatever needs it encoded. Throws Failure that names a field that is missing.
    [[nodiscard]] QString url() const;
    [[nodiscard]] static ServerAddress of(const QString &url);
};

/// What a person decides about the database to work in, and what is done about it.
class StartDraft
{
public:
    enum class Way { NewAgency, File, Server, Sample };

    Way way = Way::NewAgency;
    host::NewAgency agency;
    QString proposed; ///< a database used lately, which the page of its kind shows

    /// The file or URL that was chosen by one of the following; they throw Failure or db::DatabaseError when
    /// it cannot be used, with what to do, and then leave the choice as it was.
    [[nodiscard]] const QString &location() const { return m_location; }
    /// A file that is not there yet.
    void chooseNewFile(const QString &path);
    /// A database that is there: looked at, but not changed.
    void chooseExisting(const QString &location);
    /// The invented agency in the user's folder; made when missing.
    void chooseSample(const QString &folder);

    /// The place is empty: the pages about the agency are to be filled in.
    [[nodiscard]] bool makesAgency() const { return m_task == Task::MakeAgency; }
    [[nodiscard]] bool upgrades() const { return m_task == Task::Upgrade; }
    /// What will be done, to be read before it is.
    [[nodiscard]] QString summary() const;
    /// Who can sign in afterwards, as far as this is known.
    [[nodiscard]] QString userName() const;
    /// Does it; afterwards the database can be opened. Nothing remains of what failed. Throws Failure and
    /// db::DatabaseError.
    void carryOut(const db::PageProgress &progress);

private:
    enum class Task { Open, MakeAgency, MakeSample, Upgrade };

    void makeAgency() const;
    void makeSample(const db::PageProgress &progress) const;
    void upgrade(const db::PageProgress &progress) const;

    QString m_location;
    QString m_backup; ///< of a database that is to be upgraded
    Task m_task = Task::MakeAgency;
};

} // namespace ebtq::shell
