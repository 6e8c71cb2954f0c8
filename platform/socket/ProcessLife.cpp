#include "ProcessLife.h"

#include <cxxabi.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <new>
#include <utility>

// What the linker gives each library to be known by.
extern "C" void* __dso_handle;

namespace kq {

namespace {

constexpr std::chrono::seconds kLongestDelivery{2};

} // namespace

// One for all libraries of the process that contain this code. Its guard is taken for a race by a checker, which is
// told this function's name.
[[gnu::visibility("default"), gnu::noinline]] inline DeliveryGate& gateOfProcess() {
    // Takes no memory, which may be out when the first death is told, and is never destroyed.
    alignas(DeliveryGate) static unsigned char place[sizeof(DeliveryGate)];
    static DeliveryGate* const gate = new (place) DeliveryGate;
    return *gate;
}

DeliveryGate& DeliveryGate::instance() { return gateOfProcess(); }

// Registers only: the main thread may also end alone, and the others still take deliveries then. Exit handlers run last
// in, first out, and none is registered later than this one.
void DeliveryGate::mainThreadEnds(void*) { std::atexit(closeAtExit); }

// When the library is loaded: later, memory may be out, without which the C library ends the process here. No
// thread_local object, since the leak checker fails on one of a library that is opened while the program runs.
void DeliveryGate::watchMainThread() {
    if (::gettid() == ::getpid()) {
        abi::__cxa_thread_atexit(mainThreadEnds, nullptr, &__dso_handle);
    }
}

void DeliveryGate::arm() {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (!std::exchange(mArmed, true)) {
        std::atexit(closeAtExit);
    }
}

bool DeliveryGate::enter() {
    arm();
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mClosed) {
        return false;
    }
    replaceBusy(std::thread::id(), std::this_thread::get_id());
    return true;
}

void DeliveryGate::leave() {
    // The lock may have been held when the child was forked.
    endForkedChild();
    const std::lock_guard<std::mutex> lock(mMutex);
    replaceBusy(std::this_thread::get_id(), std::thread::id());
    mIdle.notify_all();
}

void DeliveryGate::replaceBusy(std::thread::id before, std::thread::id after) {
    if (const auto place = std::find(mBusy.begin(), mBusy.end(), before); place != mBusy.end()) {
        *place = after;
    }
}

bool DeliveryGate::othersAreBusy() const {
    return std::any_of(mBusy.begin(), mBusy.end(), [own = std::this_thread::get_id()](std::thread::id busy) {
        return busy != std::thread::id() && busy != own;
    });
}

void DeliveryGate::closeAtExit() {
    if (!inForkedChild()) {
        instance().close();
    }
}

void DeliveryGate::close() {
    std::unique_lock<std::mutex> lock(mMutex);
    if (std::exchange(mClosed, true)) {
        return;
    }
    mIdle.wait_for(lock, kLongestDelivery, [this] { return !othersAreBusy(); });
}

} // namespace kq
