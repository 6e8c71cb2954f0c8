#pragma once

#include "wire/Function.h"

#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** Under which terms checks are made. */
struct Terms {
    /** Names of dangerous functions that may be called all the same. */
    std::vector<std::string> allowed;
};

/** Whether a function may be called: it is not dangerous, or was named. */
bool mayCall(const wire::Function& function, const Terms& terms);

/** What a check of one that may not be called is left out with. */
std::string whyNotCalled(const wire::Function& function);

} // namespace kelutv::tool::compliance
