#pragma once

#include "tools/kelutv/comparison/Ignored.h"
#include "tools/kelutv/comparison/Vocabulary.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::tool {

/** Something that happened in a thread. */
struct Step {
    /** Of the file, from 1. */
    std::size_t line;
    /** In nanoseconds; 0 for what takes no time. */
    std::int64_t duration;
};

/** A thread of a recording. */
struct RecordedThread {
    std::int32_t process;
    std::int32_t thread;
    /** What happened in it, in order: the token of each step. @{ */
    std::vector<Token> tokens = {};
    std::vector<Step> steps = {};
    /** @} */
};

/** What a recording tells of each thread, in the order in which they come first. */
struct RecordedThreads {
    std::vector<RecordedThread> threads;
    /** How many transactions and events are missing. */
    std::int64_t leftOut = 0;
};

/**
 * @param path of the recording, `-` for standard input
 * @throws UsageError when it cannot be read or is none
 */
RecordedThreads threadsOf(const std::string& path, const Ignored& ignored, Vocabulary& vocabulary);

} // namespace kelutv::tool
