#pragma once

#include <QFile>
#include <QString>

namespace ebtq::db {

/// A database that is about to be made: unless it is kept, its file is removed again when this ends. To be
/// made before the connection. A database on a server and a file that is there already are left alone.
class FreshFile
{
public:
    explicit FreshFile(const QString &location)
        : m_path(location.contains(QLatin1String("://")) || QFile::exists(location) ? QString() : location)
    {}
    FreshFile(const FreshFile &) = delete;
    FreshFile &operator=(const FreshFile &) = delete;
    ~FreshFile()
    {
        if (!m_path.isEmpty())
            QFile::remove(m_path);
    }
    void keep() { m_path.clear(); }

private:
    QString m_path;
};

} // namespace ebtq::db
