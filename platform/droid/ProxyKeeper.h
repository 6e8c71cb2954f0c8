#pragma once

#include <atomic>

namespace android {

class BpRefBase;

/**
 * Keeps proxies from being destroyed once the process has begun to exit.
 *
 * Threads of the application may still be inside a call, or start one, while the static objects that hold the proxies
 * are destroyed by the exiting thread.
 */
class ProxyKeeper {
public:
    static void add(BpRefBase* proxy);
    static void remove(BpRefBase* proxy);

    /** Called with each call, also one that is refused; the first one registers what is done at exit. */
    static void arm() {
        if (!sArmed.load(std::memory_order_relaxed)) {
            armNow();
        }
    }

private:
    static void armNow();

    [[gnu::visibility("hidden")]] static std::atomic<bool> sArmed;
};

} // namespace android
