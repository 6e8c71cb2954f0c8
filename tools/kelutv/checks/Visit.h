#pragma once

#include "tools/kelutv/checks/Check.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace kelutv::tool {

/** Who is told how it goes. */
struct Listener {
    /** A check begins; may be empty, which saves a message for each. */
    std::function<void(const Check& check)> begins;
    std::function<void(const Check& check, const Finding& finding)> ends;
};

/**
 * Makes the checks one after the other, in a process of their own that is given up, and another started, when an
 * answer takes longer than it may. Ends early when there is no service any more, or when nothing is answered any
 * longer.
 *
 * This process must not have used the library yet.
 *
 * @return how many checks were made
 * @throws std::system_error when no process can be started
 */
std::size_t makeChecks(const std::vector<Check>& checks, const Listener& listener);

} // namespace kelutv::tool
