#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace ebtq::db {

/// Where a server is and how it is spoken to: a URL taken apart, with our own settings where it has none.
class PostgresAddress
{
public:
    /// Throws DatabaseError for a URL that cannot be read; its message shows nothing of the URL.
    explicit PostgresAddress(const QString &url);

    /// True for one of another kind, too: it is refused without being shown, since it may hold a password.
    [[nodiscard]] static bool isUrl(const QString &location);

    /// As libpq takes them, ended by nullptr; later ones win.
    [[nodiscard]] const std::vector<const char *> &keywords() const { return m_keywords; }
    [[nodiscard]] const std::vector<const char *> &values() const { return m_values; }
    /// User, hosts and base as a URL, and nothing else: neither a password nor a path of a key.
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
