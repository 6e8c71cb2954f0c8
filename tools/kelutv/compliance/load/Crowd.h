#pragma once

#include "tools/kelutv/compliance/results/CheckResult.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** Callers that call at once. */
struct CrowdSize {
    std::size_t processes;
    /** Of each process. */
    std::size_t threads;

    std::size_t callers() const { return processes * threads; }
};

/** What calling at once came to. */
struct CrowdReport {
    std::size_t calls = 0;
    /** Answers that were not those to what was asked. */
    std::size_t wrong = 0;
    /** The first of them. */
    std::optional<Exchange> firstWrong;
    std::vector<std::chrono::nanoseconds> latencies;
    /** What kept a process from calling; empty when nothing did. */
    std::string complaint;
};

/**
 * Lets them ask what has known answers, all from the same moment on.
 *
 * @throws ToolError, LinkError as `knownAnswers`
 */
CrowdReport callAtOnce(const CrowdSize& size);

} // namespace kelutv::tool::compliance
