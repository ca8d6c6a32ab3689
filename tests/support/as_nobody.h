#pragma once

#include <gtest/gtest.h>

#include <grp.h>
#include <unistd.h>

namespace ebtq::test {

/// Modes of files do not bind root: for the scope the test runs as nobody, in one further group.
class AsNobody
{
public:
    explicit AsNobody(gid_t group = 65534)
        : m_isRoot(geteuid() == 0 && setgroups(1, &group) == 0 && setresuid(65534, 65534, 0) == 0)
    {}
    AsNobody(const AsNobody &) = delete;
    AsNobody &operator=(const AsNobody &) = delete;
    ~AsNobody() { EXPECT_TRUE(!m_isRoot || (setresuid(0, 0, 0) == 0 && setgroups(0, nullptr) == 0)); }

private:
    bool m_isRoot;
};

} // namespace ebtq::test
