#pragma once

#include "fuzz/support/Input.h"

#include "droid/kernel/BinderDriver.h"
#include "droid/kernel/KernelBinder.h"
#include "platform/droid/kernel/FakeDriver.h"

#include <memory>
#include <mutex>
#include <vector>

namespace kelutv::fuzz {

/**
 * The kernel's driver as the runtime of this process sees it: each input brings one of its own. Threads that the
 * runtime starts to serve find that the driver has gone and end.
 */
class Driver : public android::BinderDriver {
public:
    /** The runtime over this driver; stays as long as the process, since its threads do. */
    static android::KernelBinder& binder();

    /** Puts a fresh driver in place of the one before. */
    static test::FakeDriver& renew();

    int control(unsigned long request, void* argument) override;
    bool owns(const std::uint8_t* data, std::size_t length) const override { return mCurrent->owns(data, length); }

private:
    static Driver& instance();

    std::unique_ptr<test::FakeDriver> mCurrent = std::make_unique<test::FakeDriver>();
};

/** Returns when the deaths reported so far have been told. */
void waitUntilDeathsAreTold(test::FakeDriver& driver);

} // namespace kelutv::fuzz
