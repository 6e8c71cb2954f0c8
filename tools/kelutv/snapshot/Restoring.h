#pragma once

#include "tools/kelutv/snapshot/Snapshot.h"

#include <functional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** What became of one state. */
struct Restored {
    std::string state;
    Json wanted;
    /** What it was; null when it could not be read. */
    Json before;
    /** What it is after a call; null when there was none. */
    Json after;
    /** The command line of the call that sets it; empty when it is not to be set, or cannot be. */
    std::string call;
    /** Why it did not take; empty when it did, or needed not. */
    std::string complaint;

    bool isAsWanted() const { return complaint.empty(); }
};

struct RestoreOrder {
    /** What is to be put back, dangerous states only where that is wanted. */
    std::vector<HeldState> states;
    /** Sets nothing, and says what would be set. */
    bool isRehearsal = false;
    /** How many seconds an answer may take. */
    double limit = 5;
};

/**
 * Sets what differs, what others depend on first, and reads it back; again as long as that helps, four times at most,
 * since setting one state may change another. Reads everything itself, so that it can be broken off anywhere and made
 * again. This process must not have used the library yet.
 *
 * @param tell hears of each state that is set, or would be, at once, and before an error of each that is not as wanted;
 * when it fails it hears no more, and what it threw is thrown once all is set
 * @return what became of each state, in the order in which they were set
 * @throws LinkError when there is no service or it is gone, ToolError when nothing is answered any longer
 */
std::vector<Restored> restore(const RestoreOrder& order, const std::function<void(const Restored& restored)>& tell);

} // namespace kelutv::tool
