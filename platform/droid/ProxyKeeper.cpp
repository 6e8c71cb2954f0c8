#include "ProxyKeeper.h"

#include "socket/ProcessLife.h"

#include <binder/Binder.h>

#include <cstdlib>
#include <mutex>
#include <set>

namespace android {

namespace {

struct Proxies {
    std::mutex mutex;
    std::set<BpRefBase*> all;
};

/** Never destroyed: used by threads that outlive static objects. */
Proxies& proxies() {
    static Proxies* const instance = new Proxies;
    return *instance;
}

void holdAll() {
    if (kq::inForkedChild()) {
        return;
    }
    const std::lock_guard<std::mutex> lock(proxies().mutex);
    for (const BpRefBase* proxy : proxies().all) {
        proxy->getWeakRefs()->attemptIncStrong(proxy);
    }
}

void registerExitHandler() {
    static const int registered = std::atexit(holdAll);
    static_cast<void>(registered);
}

} // namespace

void ProxyKeeper::add(BpRefBase* proxy) {
    if (kq::inForkedChild()) {
        return;
    }
    const std::lock_guard<std::mutex> lock(proxies().mutex);
    proxies().all.insert(proxy);
}

void ProxyKeeper::remove(BpRefBase* proxy) {
    if (kq::inForkedChild()) {
        return;
    }
    const std::lock_guard<std::mutex> lock(proxies().mutex);
    proxies().all.erase(proxy);
}

std::atomic<bool> ProxyKeeper::sArmed{false};

[[gnu::cold]] void ProxyKeeper::armNow() {
    // Exit handlers run last in, first out: the first call comes after the static object that holds the proxy was made,
    // so the handlers run before that object is destroyed.
    registerExitHandler();
    kq::DeliveryGate::instance().arm();
    sArmed.store(true, std::memory_order_relaxed);
}

} // namespace android
