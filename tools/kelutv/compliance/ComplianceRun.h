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
};

/**
 * Makes the checks, and puts back what they changed. Where some of them change anything, the last result says whether
 * all is as before; the file stays when it is not. This process must not have used the library yet.
 *
 * @throws LinkError when there is no service, UsageError when the file is there already, ToolError when it cannot be
 * written
 */
std::vector<CheckResult> makeRun(const Checks& checks, const RunOrder& order, const Progress& progress);

} // namespace kelutv::tool::compliance
