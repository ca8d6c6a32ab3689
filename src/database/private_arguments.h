#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

namespace ebtq::db {

/// The command line of a program, for its own use. Every user of the machine can read it in the process
/// list, so a password in a URL is erased there; the copy kept here is complete. Create it first and keep it
/// as long as the application object, which refers to it.
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
    std::vector<char *> m_values; ///< terminated by nullptr
};

/// Removes a variable from the environment and returns its value: child processes do not inherit it and it is
/// not visible in the process list. Empty when it is not set.
[[nodiscard]] std::optional<QByteArray> takeFromEnvironment(const char *name);

} // namespace ebtq::db
