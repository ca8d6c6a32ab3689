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

} // namespace

std::vector<double> medians(const std::vector<Contender> &contenders, int rounds)
{
    std::vector<std::vector<double>> times(contenders.size());
    for (int round = 0; round <= rounds; ++round) {
        for (size_t at = 0; at < contenders.size(); ++at) {
            if (contenders[at].before)
                contenders[at].before();
            const double time = milliseconds(contenders[at].run);
            if (round > 0)
                times[at].push_back(time);
        }
    }
    std::vector<double> result;
    for (auto &series : times) {
        std::sort(series.begin(), series.end());
        result.push_back(series[series.size() / 2]);
    }
    return result;
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
