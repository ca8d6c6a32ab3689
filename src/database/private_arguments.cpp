#include "database/private_arguments.h"

#include "database/connection.h"

#include <cstdlib>
#include <cstring>

namespace ebtq::db {

namespace {

/// Replaces the URL by the form that may be shown.
void hidePassword(char *argument)
{
    char *url = std::strstr(argument, "://");
    if (!url)
        return;
    while (url != argument && url[-1] != '=') // "--db=…" is written so, too
        --url;
    const QByteArray shown = Connection::shownLocation(QString::fromLocal8Bit(url)).toLocal8Bit();
    const size_t room = std::strlen(url);
    std::memset(url, 0, room);
    std::memcpy(url, shown.constData(), qMin(room, static_cast<size_t>(shown.size())));
}

} // namespace

PrivateArguments::PrivateArguments(int count, char **values)
    : m_count(count)
    , m_texts(values, values + count)
{
    for (QByteArray &text : m_texts)
        m_values.push_back(text.data());
    m_values.push_back(nullptr);
    for (char **value = values; value != values + count; ++value)
        hidePassword(*value);
}

std::optional<QByteArray> takeFromEnvironment(const char *name)
{
    char *value = std::getenv(name);
    if (!value)
        return std::nullopt;
    const QByteArray taken(value);
    std::memset(value, 0, std::strlen(value));
    qunsetenv(name);
    return taken;
}

} // namespace ebtq::db
