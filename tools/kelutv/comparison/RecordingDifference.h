#pragma once

#include "tools/kelutv/comparison/Ignored.h"
#include "tools/kelutv/comparison/RecordedThreads.h"
#include "tools/kelutv/comparison/Values.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** Where something stands in a recording. */
struct RecordedPlace {
    std::size_t line;
    std::int32_t process;
    std::int32_t thread;
    const Happening* happening;
};

/** Something that two recordings do not have alike. */
struct RecordingDifference {
    /** `missing` in the second, `added` in it, `moved` to another place of its thread, or `changed`. */
    const char* kind;
    /** Nothing where it is not in this recording. */
    std::optional<RecordedPlace> first;
    std::optional<RecordedPlace> second;
    /** What is not alike of what stands in both. */
    std::vector<ValueDifference> values;
};

struct ComparisonOrder {
    std::string first;
    std::string second;
    std::vector<std::string> ignored;
    /** How many times as long as in the other recording a call may take; nothing when that does not count. */
    std::optional<double> factor;
};

struct ComparisonSum {
    std::size_t differences = 0;
    /** How many calls, events and losses of the two recordings stand for each other or for nothing. */
    std::size_t compared = 0;
    /** What the recorders did not take in time. */
    std::int64_t leftOutOfFirst = 0;
    std::int64_t leftOutOfSecond = 0;
};

/**
 * Compares two recordings by what happened in their threads.
 *
 * @param tell hears of each difference, thread by thread
 * @throws UsageError when one of them cannot be read, or what is to be ignored does not exist
 */
ComparisonSum compareRecordings(const ComparisonOrder& order,
                                const std::function<void(const RecordingDifference& difference)>& tell);

} // namespace kelutv::tool
