#pragma once

#include "tools/kelutv/compliance/Runner.h"
#include "tools/kelutv/compliance/framework/Terms.h"

#include <string>
#include <vector>

namespace kelutv::tool::compliance {

struct RunOrder {
    Terms terms;
    /** Where the values to put back are kept. */
    std::string journal;
    /** How many seconds an answer may take. */
    double limit = 5;
};

/** Who is told how it goes. */
struct Progress {
    /** Hears once, before anything is changed, how many values the file has. */
    std::function<void(std::size_t values)> keeps;
    Tell tell;
    /** Hears when the file stays at the end, and why. */
    std::function<void(const std::string& reason)> stays = {};
};

/**
 * Makes the checks, and puts back what they changed. Where some of them change anything, the last result says whether
 * all is as before; it failed when the file stays. That is so when not all is as before, and when a check that sets
 * something was given up, since the service may carry out a request of it yet. This process must not have used the
 * library yet.
 *
 * @throws LinkError when there is no service, UsageError when the file is there already, ToolError when it cannot be
 * written; what ends the run later, such as an error of `progress`, when all was put back as far as that goes
 */
std::vector<CheckResult> makeRun(const Checks& checks, const RunOrder& order, const Progress& progress);

} // namespace kelutv::tool::compliance
