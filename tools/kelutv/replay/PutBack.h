#pragma once

#include "tools/kelutv/replay/ReplayPlan.h"
#include "tools/kelutv/snapshot/Snapshot.h"

#include <map>
#include <string>
#include <vector>

namespace kelutv::tool {

/** What a replay is going to set. */
struct StatesToSet {
    /** Those that can be put back, as they are now. */
    std::vector<HeldState> held;
    /** Why each other one cannot be put back. */
    std::map<std::string, std::string> lost;
};

/**
 * Reads each state that one of the calls sets, and changes nothing. This process must not have used the library yet.
 *
 * @param limit how many seconds one answer may take
 * @throws LinkError when there is no service or it is gone, ToolError when nothing is answered any longer
 */
StatesToSet statesSetBy(const std::vector<RecordedCall>& calls, double limit);

} // namespace kelutv::tool
