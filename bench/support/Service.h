#pragma once

#include "Child.h"

#include <optional>

namespace kelutv::bench {

/** True when calls go through the kernel's driver. */
bool throughKernel();

/**
 * The service that answers at once, in a process of its own in the runtime directory of this one, found by the time it
 * is made. This process has not used the library yet, so that its copies may.
 */
class Service {
public:
    Service();

    pid_t process() const { return mService->process(); }

private:
    std::optional<Child> mManager;
    std::optional<Child> mService;
};

} // namespace kelutv::bench
