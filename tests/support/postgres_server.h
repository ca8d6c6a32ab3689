#pragma once

#include <QString>
#include <QTemporaryDir>

namespace ebtq::test {

/// A server of one's own on loopback, to be ended as by a power cut, with standby and encryption: see
/// postgres_server.sh. It is gone with this.
class PostgresServer
{
public:
    enum class Wire { Plain, Encrypted };
    struct StandbyOf
    {
        const PostgresServer &primary;
    };

    explicit PostgresServer(Wire wire = Wire::Plain);
    /// The primary confirms nothing any more that this one has not got.
    explicit PostgresServer(StandbyOf of);
    PostgresServer(const PostgresServer &) = delete;
    PostgresServer &operator=(const PostgresServer &) = delete;
    ~PostgresServer();

    void kill() const { script({u"kill"_qs}); }
    /// After a kill; where it was.
    void start() const { script({u"start"_qs}); }
    void restart() const
    {
        kill();
        start();
    }
    void promote() const { script({u"promote"_qs}); }

    /// With its password.
    [[nodiscard]] QString url() const { return m_url; }
    [[nodiscard]] QString password() const { return m_url.section(u':', 2).section(u'@', 0, 0); }
    /// As "host:port".
    [[nodiscard]] QString place() const { return m_url.section(u'@', 1).section(u'/', 0, 0); }
    /// The path of a certificate beside it.
    [[nodiscard]] QString file(const QString &name) const { return m_server + u'/' + name; }

private:
    struct NotStarted
    {};
    explicit PostgresServer(NotStarted /*unused*/) {}
    /// The server goes between the action and what else there is.
    void script(QStringList arguments) const;
    void readUrl();

    QTemporaryDir m_folder;
    QString m_server = m_folder.filePath(u"server"_qs);
    QString m_url;
};

} // namespace ebtq::test
