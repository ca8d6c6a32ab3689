#include "measure.h"

#include <QJsonDocument>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <iostream>

namespace ebtq::bench {

namespace {

double milliseconds(const std::function<void()> &run)
{
    const auto begin = std::chrono::steady_clock::now();
    run();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

using Times = std::vector<std::vector<double>>; ///< of each contender, a time for each round

/// Who begins changes from round to round, so that nobody always finds what somebody else left in the caches.
void runRound(const std::vector<Contender> &contenders, int round, Times &times)
{
    for (size_t turn = 0; turn < contenders.size(); ++turn) {
        const size_t at = (turn + static_cast<size_t>(round)) % contenders.size();
        if (contenders[at].before)
            contenders[at].before();
        const double time = milliseconds(contenders[at].run);
        if (round > 0)
            times[at].push_back(time);
    }
}

double median(std::vector<double> &series)
{
    const auto middle = series.begin() + static_cast<qsizetype>(series.size() / 2);
    std::nth_element(series.begin(), middle, series.end());
    return *middle;
}

} // namespace

std::vector<double> medians(const std::vector<Contender> &contenders, int rounds)
{
    return sumsOfMedians({contenders}, rounds);
}

std::vector<double> sumsOfMedians(const std::vector<std::vector<Contender>> &stretches, int rounds)
{
    std::vector<Times> times(stretches.size(), Times(stretches.front().size()));
    for (int round = 0; round <= rounds; ++round) {
        for (size_t stretch = 0; stretch < stretches.size(); ++stretch)
            runRound(stretches[stretch], round, times[stretch]);
    }
    std::vector<double> sums(stretches.front().size());
    for (Times &stretch : times) {
        for (size_t at = 0; at < sums.size(); ++at)
            sums[at] += median(stretch[at]);
    }
    return sums;
}

double rounded(double figure)
{
    return std::round(figure * 1000) / 1000;
}

void print(const QJsonObject &figures)
{
    std::cout << QJsonDocument(figures).toJson(QJsonDocument::Compact).constData() << std::endl;
}

void keep(size_t value)
{
    static std::atomic<size_t> sink = 0;
    sink.fetch_add(value, std::memory_order_relaxed);
}

} // namespace ebtq::bench
