#include "torture/starvation/Steps.h"

#include "support/RuntimeDir.h"
#include "torture/Size.h"

#include <algorithm>

namespace kelutv::test {

namespace {

/** The share by which steps grow, in percent of what they have come to. */
long growth() { return ofSize(100L, 5L, 0L); }

bool starvable(starvation::Resource resource, [[maybe_unused]] bool lasting) {
#ifdef KELUTV_SANITIZED
    // A sanitizer has an allocator and mappings of its own and ends the process when they fail; its search for leaks at
    // the end takes descriptors.
    if (resource == starvation::kAllocation || resource == starvation::kMapping ||
        (resource == starvation::kDescriptor && lasting)) {
        return false;
    }
#endif
    return resource != starvation::kIoctl || throughKernel();
}

} // namespace

std::vector<long> stepsTo(long count) {
    std::vector<long> steps;
    for (long step = 1; step <= count; step += std::max(1L, step * growth() / 100)) {
        steps.push_back(step);
    }
    return steps;
}

std::vector<std::pair<starvation::Resource, bool>> starvableResources() {
    std::vector<std::pair<starvation::Resource, bool>> all;
    for (int resource = 0; resource < starvation::kResources; ++resource) {
        for (const bool lasting : {false, true}) {
            if (starvable(static_cast<starvation::Resource>(resource), lasting)) {
                all.emplace_back(static_cast<starvation::Resource>(resource), lasting);
            }
        }
    }
    return all;
}

} // namespace kelutv::test
