#pragma once

#include "torture/starvation/Starvation.h"

namespace kelutv::test {

/** One refusal to try. */
struct Starved {
    starvation::Resource resource;
    /** The request that is refused, counted from 1; 0 for none. */
    long nth;
    /** Whether all requests behind it are refused, too. */
    bool lasting;
};

/**
 * Sets the page to this refusal, for one process or, with 0, for each that uses the page, and there for one thread or,
 * with 0, for each; and arms it.
 */
void arm(starvation::Page& page, const Starved& starved, pid_t process, pid_t thread = 0);

} // namespace kelutv::test
