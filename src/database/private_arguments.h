#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

namespace ebtq::db {

/// The command line of a program, for its own use. Everybody on the machine can read it in the list of
/// processes, so a password in a URL is wiped out there; what is kept here stays whole. Made first of all and
/// kept as long as the application object, which refers to it.
class PrivateArguments
{
public:
    PrivateArguments(int count, char **values);
    PrivateArguments(const PrivateArguments &) = delete;
    PrivateArguments &operator=(const PrivateArguments &) = delete;

    [[nodiscard]] int &count() { return m_count; }
    [[nodiscard]] char **values() { return m_values.data(); }

private:
    int m_count;
    std::vector<QByteArray> m_texts;
    std::vector<char *> m_values; ///< ended by nullptr
};

/// The value of a variable of the environment, which is taken out of it: programs that are started from here
/// do not inherit it, and nobody finds it in the list of processes. Nothing when it is not set.
[[nodiscard]] std::optional<QByteArray> takeFromEnvironment(const char *name);

} // namespace ebtq::db
