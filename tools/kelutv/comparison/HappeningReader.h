#pragma once

#include "tools/kelutv/comparison/Happening.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace kelutv::tool {

/** A happening as a recording has it. */
struct RecordedHappening {
    /** Of the line, from 1. */
    std::size_t number;
    /** Of the section, from 1. */
    std::size_t section;
    recording::Moment moment;
    /** In nanoseconds; 0 for what takes no time. */
    std::int64_t duration;
    Happening happening;
};

/**
 * Hands on all that happened, line by line.
 *
 * @param path of the recording, `-` for standard input
 * @return how many transactions and events the recorders left out
 * @throws UsageError when it cannot be read or is no recording: the exit code of a failure says here that something
 * differs
 */
std::int64_t readHappenings(const std::string& path, const std::function<void(const RecordedHappening&)>& take);

} // namespace kelutv::tool
