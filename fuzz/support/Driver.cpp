#include "fuzz/support/Driver.h"

#include "fuzz/support/Target.h"

#include <cerrno>
#include <chrono>
#include <future>

namespace kelutv::fuzz {
namespace {

constexpr std::chrono::seconds kPatience{20};

bool entersLoop(const binder_write_read& exchange) {
    std::uint32_t first = 0;
    if (exchange.write_size >= sizeof first) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the driver speaks of addresses as numbers.
        std::memcpy(&first, reinterpret_cast<const void*>(static_cast<std::uintptr_t>(exchange.write_buffer)),
                    sizeof first);
    }
    return first == BC_ENTER_LOOPER || first == BC_REGISTER_LOOPER;
}

/** By what the driver would tell the death of the object; other threads send, too. */
binder_uintptr_t cookieOf(std::uint32_t handle, const std::vector<test::Command>& sent) {
    for (const test::Command& command : sent) {
        const auto asked = command.as<binder_handle_cookie>();
        if (command.code == BC_REQUEST_DEATH_NOTIFICATION && asked.handle == handle) {
            return asked.cookie;
        }
    }
    return 0;
}

} // namespace

Driver& Driver::instance() {
    // Owned by the runtime.
    static auto* const driver = new Driver;
    return *driver;
}

android::KernelBinder& Driver::binder() {
    static auto* const binder = new android::KernelBinder(std::unique_ptr<BinderDriver>(&instance()));
    return *binder;
}

test::FakeDriver& Driver::renew() {
    instance().mCurrent = std::make_unique<test::FakeDriver>();
    return *instance().mCurrent;
}

int Driver::control(unsigned long request, void* argument) {
    if (request == BINDER_WRITE_READ && entersLoop(*static_cast<const binder_write_read*>(argument))) {
        return -ENODEV;
    }
    return mCurrent->control(request, argument);
}

void waitUntilDeathsAreTold(test::FakeDriver& driver) {
    constexpr std::uint32_t kOwnHandle = 0x7FFFFFFF;
    android::KernelBinder& binder = Driver::binder();
    const auto told = std::make_shared<std::promise<void>>();
    require(binder.startTelling(), "there is a thread to tell deaths");
    std::uint64_t watch = 0;
    const bool watched = binder.handles().acquire(kOwnHandle) &&
                         binder.handles().watch(
                             kOwnHandle, [told] { told->set_value(); }, &watch) == android::NO_ERROR;
    require(watched, "a death can be asked for");
    binder.died(cookieOf(kOwnHandle, driver.takeSent()));
    require(told->get_future().wait_for(kPatience) == std::future_status::ready, "deaths are told");
    binder.handles().release(kOwnHandle);
}

} // namespace kelutv::fuzz
