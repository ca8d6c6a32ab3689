#pragma once

#include <QString>
#include <QTemporaryDir>

namespace ebtq::bench {

/// The server that a measurement uses: the one that the URL names, or one on loopback that ends with this.
class MeasuredServer
{
public:
    /// An empty `url` starts one, which keeps its promises as an office's would. Throws when that cannot be
    /// done.
    explicit MeasuredServer(const QString &url);
    MeasuredServer(const MeasuredServer &) = delete;
    MeasuredServer &operator=(const MeasuredServer &) = delete;
    ~MeasuredServer();
    [[nodiscard]] const QString &url() const { return m_url; }

private:
    void start();
    void runScript(const QString &action) const;

    QTemporaryDir m_folder;
    QString m_url;
    bool m_isOwn;
};

/// An empty base of its own on a server, removed at the end: nothing is written into anybody's data.
class ScratchBase
{
public:
    /// Throws when the user of `server` may not make one.
    explicit ScratchBase(const QString &server);
    ScratchBase(const ScratchBase &) = delete;
    ScratchBase &operator=(const ScratchBase &) = delete;
    ~ScratchBase();
    [[nodiscard]] const QString &url() const { return m_url; }

private:
    QString m_server;
    QString m_name;
    QString m_url;
};

} // namespace ebtq::bench
