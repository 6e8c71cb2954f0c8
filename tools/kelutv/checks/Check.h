#pragma once

#include "tools/kelutv/checks/Finding.h"

#include <functional>
#include <string>

namespace kelutv::tool {

/** One thing to look at. */
struct Check {
    /** `service.descriptor`, `read.audio.getVolume`. */
    std::string name;
    /** What the checks that are told together have in common: `platform`, `service`, `audio`. */
    std::string topic;
    /** How many seconds each answer may take; the check itself, where it asks nothing. */
    double limit;
    /** Looks; runs in a process of its own, after all that stand before it and need no repetition. */
    std::function<Finding()> look;
};

} // namespace kelutv::tool
