#include "ProcessLife.h"

#include <pthread.h>

#include <atomic>
#include <chrono>
#include <cstdlib>

namespace kq {

namespace {

constexpr std::chrono::seconds kLongestDelivery{2};

std::atomic<bool> gForkedChild{false};

} // namespace

void watchForks() {
    static const int registered = ::pthread_atfork(nullptr, nullptr, [] { gForkedChild.store(true); });
    static_cast<void>(registered);
}

bool inForkedChild() { return gForkedChild.load(std::memory_order_relaxed); }

DeliveryGate& DeliveryGate::instance() {
    static DeliveryGate* const gate = new DeliveryGate;
    return *gate;
}

bool DeliveryGate::enter() {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (!mArmed) {
        // Exit handlers run last in, first out. Registered no earlier than the first delivery, this one runs before the
        // destructors of the static objects that asked for the delivery.
        mArmed = true;
        std::atexit(closeAtExit);
    }
    if (mClosed) {
        return false;
    }
    mBusy = std::this_thread::get_id();
    return true;
}

void DeliveryGate::leave() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mBusy = std::thread::id();
    mIdle.notify_all();
}

void DeliveryGate::closeAtExit() {
    if (!inForkedChild()) {
        instance().close();
    }
}

void DeliveryGate::close() {
    std::unique_lock<std::mutex> lock(mMutex);
    mClosed = true;
    if (mBusy != std::this_thread::get_id()) {
        mIdle.wait_for(lock, kLongestDelivery, [this] { return mBusy == std::thread::id(); });
    }
}

} // namespace kq
