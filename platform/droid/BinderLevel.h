#pragma once

#include <atomic>

namespace android {

/** The Android API levels at which requests and the service manager's protocol changed their form. */
enum class BinderLevel { k28 = 28, k29 = 29, k30 = 30 };

/** As a number, for the log. */
constexpr int numberOf(BinderLevel level) { return static_cast<int>(level); }

// The level of this process, once it is known; asked for with each request.
extern std::atomic<BinderLevel> gKnownBinderLevel;

BinderLevel findBinderLevel();

/** What this process speaks: the level that KQDROID_BINDER_LEVEL names, else 28, with one line in the log. */
inline BinderLevel binderLevel() {
    const BinderLevel known = gKnownBinderLevel.load(std::memory_order_relaxed);
    return known == BinderLevel{} ? findBinderLevel() : known;
}

} // namespace android
