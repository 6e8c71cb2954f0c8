#pragma once

#include "wire/Function.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** Under which terms checks are made. */
struct Terms {
    /** Names of functions that may be called although they are dangerous, or nothing puts back what they do. */
    std::vector<std::string> allowed;
    /** What half of the answers under load may take, and 99 of a hundred; nothing without a limit. */
    std::optional<std::chrono::nanoseconds> p50 = {};
    std::optional<std::chrono::nanoseconds> p99 = {};
    /** Somebody is there to look at the television and to do something with it. */
    bool isInteractive = false;
    /** A command line of the shell that restarts the service; empty when none is known. */
    std::string restart = {};
};

/** Whether a function was named. */
bool isNamed(const wire::Function& function, const Terms& terms);

/** Whether a function may be called: it is not dangerous, or was named. */
bool mayCall(const wire::Function& function, const Terms& terms);

/** What a check of one that may not be called is left out with. */
std::string whyNotCalled(const wire::Function& function);

} // namespace kelutv::tool::compliance
