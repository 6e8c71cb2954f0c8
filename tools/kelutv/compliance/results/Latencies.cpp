#include "tools/kelutv/compliance/results/Latencies.h"

#include <algorithm>

namespace kelutv::tool::compliance {

namespace {

/** The least one that so many of a hundred do not exceed. */
std::chrono::nanoseconds percentile(const std::vector<std::chrono::nanoseconds>& sorted, std::size_t percent) {
    return sorted[(sorted.size() * percent + 99) / 100 - 1];
}

} // namespace

LatencySummary summaryOf(std::vector<std::chrono::nanoseconds> latencies) {
    if (latencies.empty()) {
        return {};
    }
    std::sort(latencies.begin(), latencies.end());
    return {latencies.size(), percentile(latencies, 50), percentile(latencies, 99), latencies.back()};
}

std::vector<std::chrono::nanoseconds> latenciesWhere(const std::vector<CheckResult>& results,
                                                     std::string CheckResult::*member, const std::string& text) {
    std::vector<std::chrono::nanoseconds> latencies;
    for (const CheckResult& result : results) {
        if (result.*member == text) {
            latencies.insert(latencies.end(), result.latencies.begin(), result.latencies.end());
        }
    }
    return latencies;
}

} // namespace kelutv::tool::compliance
