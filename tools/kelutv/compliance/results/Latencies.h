#pragma once

#include "tools/kelutv/compliance/results/CheckResult.h"

#include <cstddef>
#include <vector>

namespace kelutv::tool::compliance {

/** How long answers took. */
struct LatencySummary {
    std::size_t count = 0;
    /** Half of the answers took no longer. */
    std::chrono::nanoseconds p50{0};
    /** 99 of a hundred took no longer. */
    std::chrono::nanoseconds p99{0};
    std::chrono::nanoseconds greatest{0};
};

/** All times are 0 where there are none. */
LatencySummary summaryOf(std::vector<std::chrono::nanoseconds> latencies);

/** The latencies of the results whose member is this text: of a module, or of a family. */
std::vector<std::chrono::nanoseconds> latenciesWhere(const std::vector<CheckResult>& results,
                                                     std::string CheckResult::*member, const std::string& text);

} // namespace kelutv::tool::compliance
