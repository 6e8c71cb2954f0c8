#pragma once

namespace android {

/** The Android API levels at which requests and the service manager's protocol changed their form. */
enum class BinderLevel { k28 = 28, k29 = 29, k30 = 30 };

/** As a number, for the log. */
constexpr int numberOf(BinderLevel level) { return static_cast<int>(level); }

/** What this process speaks: the level that KQDROID_BINDER_LEVEL names, else 28, with one line in the log. */
BinderLevel binderLevel();

} // namespace android
