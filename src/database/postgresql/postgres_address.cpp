#include "database/postgresql/postgres_address.h"

#include "database/connection.h"

#include <QUrl>

#include <libpq-fe.h>

#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

struct Setting
{
    const char *keyword;
    const char *value;
};

/// A lost server is noticed within a minute: while connecting, while waiting for a reply, and while sent data
/// is not acknowledged. Of several hosts the writable one is used.
constexpr Setting ownSettings[] = {
    {"connect_timeout", "10"},
    {"keepalives", "1"},
    {"keepalives_idle", "30"},
    {"keepalives_interval", "10"},
    {"keepalives_count", "3"},
    {"tcp_user_timeout", "30000"},
    {"target_session_attrs", "read-write"},
    {"fallback_application_name", "ebtq"},
};

/// No URL overrides these: in another encoding the bytes of a text could end it before its quote.
constexpr Setting fixedSetting{"client_encoding", "UTF8"};

using Options = std::map<QByteArray, QByteArray>;

Options readUrl(const QByteArray &url)
{
    struct Free
    {
        void operator()(PQconninfoOption *options) const { PQconninfoFree(options); }
    };
    // libpq's message for a URL that does not parse may quote the password.
    char *message = nullptr;
    const std::unique_ptr<PQconninfoOption, Free> parsed(PQconninfoParse(url.constData(), &message));
    PQfreemem(message);
    if (!parsed)
        throw DatabaseError(
            u"数据库地址有误，应形如 postgresql://用户@主机:端口/数据库（特殊字符写成 %XX）！"_s);
    Options options;
    for (const PQconninfoOption *each = parsed.get(); each->keyword; ++each) {
        if (each->val)
            options.emplace(each->keyword, each->val);
    }
    return options;
}

QString shownUrl(const Options &options)
{
    const auto text = [&](const char *keyword) {
        const auto found = options.find(keyword);
        return found == options.end() ? QString() : QString::fromUtf8(found->second);
    };
    const QStringList hosts =
        text("host").isEmpty() ? text("hostaddr").split(u',') : text("host").split(u',');
    const QStringList ports = text("port").split(u',');
    QString places;
    for (qsizetype at = 0; at < hosts.size(); ++at) {
        // A single port applies to all hosts.
        const QString port = ports.value(ports.size() == 1 ? 0 : at);
        places += (at == 0 ? QString() : u","_s) + hosts[at] + (port.isEmpty() ? QString() : u":"_s + port);
    }
    const QString user = text("user").isEmpty() ? QString() : text("user") + u'@';
    return u"postgresql://"_s + user + places + u'/' + text("dbname");
}

} // namespace

bool PostgresAddress::isUrl(const QString &location)
{
    return location.contains(u"://");
}

PostgresAddress::PostgresAddress(const QString &url)
{
    const Options options = readUrl(url.toUtf8());
    m_texts.reserve(2 * (std::size(ownSettings) + options.size() + 1));
    for (const Setting &each : ownSettings)
        add(each.keyword, each.value);
    for (const auto &[keyword, value] : options)
        add(keyword, value);
    add(fixedSetting.keyword, fixedSetting.value);
    m_keywords.push_back(nullptr);
    m_values.push_back(nullptr);
    m_shown = shownUrl(options);
    const auto base = options.find("dbname");
    m_base = base == options.end() ? QString() : QString::fromUtf8(base->second);
}

void PostgresAddress::add(const QByteArray &keyword, const QByteArray &value)
{
    m_keywords.push_back(m_texts.emplace_back(keyword).constData());
    m_values.push_back(m_texts.emplace_back(value).constData());
}

} // namespace ebtq::db
