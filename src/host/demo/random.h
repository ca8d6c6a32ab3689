#pragma once

#include <QString>

#include <cstddef>
#include <iterator>
#include <random>

namespace ebtq::host {

/// Chance that gives the same on every machine for the same seed; the distributions of the standard library
/// do not promise that.
class Random
{
public:
    explicit Random(quint64 seed)
        : m_engine(seed)
    {}

    /// 0 to `count` - 1.
    [[nodiscard]] size_t below(size_t count) { return static_cast<size_t>(m_engine() % count); }
    [[nodiscard]] int between(int lowest, int highest)
    {
        return lowest + static_cast<int>(below(static_cast<size_t>(highest - lowest) + 1));
    }
    [[nodiscard]] bool chance(int percent) { return between(0, 99) < percent; }
    /// From 0 to below 1.
    [[nodiscard]] double fraction() { return static_cast<double>(m_engine() >> 11) * 0x1p-53; }
    [[nodiscard]] double between(double lowest, double highest)
    {
        return lowest + (highest - lowest) * fraction();
    }
    template<class Range> [[nodiscard]] const auto &pick(const Range &range)
    {
        return range[below(std::size(range))];
    }
    /// An element near the beginning more often than one near the end.
    template<class Range> [[nodiscard]] const auto &pickEarly(const Range &range)
    {
        const double skewed = fraction() * fraction();
        return range[static_cast<size_t>(skewed * static_cast<double>(std::size(range)))];
    }
    /// A record key in the form of those that the modules make.
    [[nodiscard]] QString guid();

private:
    std::mt19937_64 m_engine;
};

} // namespace ebtq::host
