#pragma once

#include "tools/kelutv/output/Errors.h"

#include <functional>

namespace kelutv::tool {

/** What came of something that was done in a process of its own. */
struct GuardedEnd {
    Exit exit;
    /** The signal that broke it off; 0 for none. */
    int signal;
};

/**
 * Does something in a process of its own, so that this one stays to tidy up whatever comes: a signal that ends
 * programs, to this process or at its terminal, ends that process, and is left for the caller. This process must have
 * one thread only.
 *
 * @param tidyUp is done here behind the end of that, while such signals do nothing
 */
GuardedEnd doGuarded(const std::function<Exit()>& something, const std::function<void(const GuardedEnd&)>& tidyUp);

} // namespace kelutv::tool
