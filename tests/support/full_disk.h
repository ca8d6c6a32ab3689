#pragma once

#include <csignal>

#include <sys/resource.h>

namespace ebtq::test {

/// For its scope no file can grow beyond a size, which is what a full disk comes to.
class FullDisk
{
public:
    explicit FullDisk(rlim_t size)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{size, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        (void)std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

} // namespace ebtq::test
