#pragma once

#include "tools/kelutv/comparison/Ignored.h"
#include "tools/kelutv/comparison/Values.h"
#include "tools/kelutv/replay/ReplayPlan.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** What became of the calls that were sent. */
struct ReplaySum {
    std::size_t sent = 0;
    /** How many of them were answered otherwise. */
    std::size_t differences = 0;
    /** Whether the service ended meanwhile, so that the rest was not sent. */
    bool isGone = false;
};

/**
 * Sends the requests one after the other to the live service, each with the token of this platform, and compares what
 * is answered with what was recorded.
 *
 * @param tell hears of each call that was answered otherwise
 * @throws LinkError when there is no service at first
 */
ReplaySum replay(const std::vector<RecordedCall>& calls, const Ignored& ignored,
                 const std::function<void(const RecordedCall& call, const std::vector<ValueDifference>& values)>& tell);

} // namespace kelutv::tool
