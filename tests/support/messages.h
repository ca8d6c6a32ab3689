#pragma once

#include <QStringList>

#include <exception>
#include <string>

namespace ebtq::test {

/// What the failure that `call` ends with says; empty when it ends well.
template<class Call> [[nodiscard]] std::string messageOf(const Call &call)
{
    try {
        call();
    } catch (const std::exception &failure) {
        return failure.what();
    }
    return {};
}

[[nodiscard]] inline std::string joined(const QStringList &lines)
{
    return lines.join(u'\n').toStdString();
}

} // namespace ebtq::test
