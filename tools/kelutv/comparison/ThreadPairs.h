#pragma once

#include "tools/kelutv/comparison/RecordedThreads.h"

#include <vector>

namespace kelutv::tool {

/** A thread of each recording that did the same, or nearly; null where the other has none of its kind. */
struct ThreadPair {
    const RecordedThread* first;
    const RecordedThread* second;
};

/**
 * Finds for each thread of the one recording the thread of the other that did most of what it did, since processes and
 * threads have other numbers in each run: in the order of the first recording, then what only the second one has.
 * Of more than 4,000,000 pairs that might be, and of long threads sooner, threads are brought together in their order.
 */
std::vector<ThreadPair> pairsOf(const RecordedThreads& first, const RecordedThreads& second);

} // namespace kelutv::tool
