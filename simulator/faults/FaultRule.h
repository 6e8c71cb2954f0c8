#pragma once

#include "wire/text/RequestPattern.h"

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>

namespace kelutv::simulator {

/** What an injected fault does to a reply, or to the process. */
struct Effect {
    enum class Kind { Error, Delay, DieBefore, DieAfter, Short, Long, Unterminated, Count };

    Kind kind;
    /** Error: the result. Delay: milliseconds. Short, Long: bytes. Count: the count. */
    std::int32_t amount;
};

/** An injected fault: which requests it hits, and what it does. */
struct FaultRule {
    /** The text it was made from, its words one space apart. */
    std::string line;
    wire::RequestPattern pattern;
    std::optional<pid_t> caller;
    /** The first matching request that is hit, counted from 1. */
    std::int32_t nth;
    /** How many are hit; nothing for all. */
    std::optional<std::int32_t> times;
    Effect effect;
};

/** Parses what follows the verb `fault`. @throws std::invalid_argument saying what is wrong with it */
FaultRule readFault(const std::string& line);

} // namespace kelutv::simulator
