#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace ebtq::db {

/// A server's address and connection settings: a parsed URL, completed by our defaults.
class PostgresAddress
{
public:
    /// Throws DatabaseError for a URL that does not parse; the message shows nothing of the URL.
    explicit PostgresAddress(const QString &url);

    /// Also true for other schemes: they are refused without being shown, since they may hold a password.
    [[nodiscard]] static bool isUrl(const QString &location);

    /// In libpq's form, terminated by nullptr; later ones win.
    [[nodiscard]] const std::vector<const char *> &keywords() const { return m_keywords; }
    [[nodiscard]] const std::vector<const char *> &values() const { return m_values; }
    /// User, hosts and database as a URL, without password and key paths.
    [[nodiscard]] const QString &shown() const { return m_shown; }
    [[nodiscard]] QString base() const { return m_base; }

private:
    void add(const QByteArray &keyword, const QByteArray &value);

    std::vector<QByteArray> m_texts;
    std::vector<const char *> m_keywords;
    std::vector<const char *> m_values;
    QString m_shown;
    QString m_base;
};

} // namespace ebtq::db
