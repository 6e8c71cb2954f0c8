#pragma once

#include "tools/kelutv/comparison/Happening.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace kelutv::tool {

/** A call of a recording. */
struct RecordedCall {
    /** Of the file, from 1. */
    std::size_t line;
    std::int32_t process;
    std::int32_t thread;
    Happening happening;
};

/** What the functions that send such a request do, but for those that hand on any item; empty when there is none. */
std::vector<wire::Effect> effectsOf(const wire::Request& request);

/** Of the item, else of the command; what stands in the request where the catalogue has neither. */
std::string requestNameOf(const wire::Request& request);

/** What is to be sent of a recording. */
struct ReplayChoice {
    /** Patterns of requests; all without one. */
    std::vector<std::string> only;
    /** Patterns of requests that are sent although they are dangerous. */
    std::vector<std::string> dangerous;
};

struct ReplayPlan {
    /** What is sent, in this order. */
    std::vector<RecordedCall> calls;
    /** How often each request is left out since it is dangerous, or since the catalogue does not know what it does. */
    std::map<std::string, std::size_t> dangerous;
    /** How many calls got no reply, so that there is nothing to compare one with. */
    std::size_t unanswered = 0;
    /** How many calls are not chosen. */
    std::size_t notMeant = 0;
    /** How many transactions and events the recording lacks. */
    std::int64_t missing = 0;
};

/**
 * Reads the whole recording, so that nothing is sent of one that is none.
 *
 * @param path of the recording, `-` for standard input
 * @throws UsageError when it cannot be read or is none, or a pattern means nothing
 */
ReplayPlan planOf(const std::string& path, const ReplayChoice& choice);

} // namespace kelutv::tool
