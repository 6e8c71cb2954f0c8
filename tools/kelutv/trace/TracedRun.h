#pragma once

#include "tools/kelutv/trace/TracePipe.h"

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::tool {

/** Who gets what a traced program sends. */
struct TraceListener {
    std::function<void(const TracedTransaction&)> take;
    /** So many were left out. */
    std::function<void(std::uint32_t)> takeLeftOut;
    /** Called about every interval, while the program runs; null for never. */
    std::function<void()> tick = nullptr;
    std::chrono::milliseconds interval{-1};
    /** How long a program waits for this tool when that is behind, once; then what it sends is left out. */
    std::chrono::milliseconds patience{200};
};

/**
 * Runs a program and hands on the transactions and, where they are wanted, the events that it and its children send.
 * Signals sent to the tool go to the program.
 *
 * @param descriptors of the program, and those of this process that they are copies of
 * @return what its end gives a shell
 */
int runTraced(const std::vector<std::string>& words, const std::vector<std::pair<int, int>>& descriptors, bool events,
              const TraceListener& listener);

} // namespace kelutv::tool
