#include "BinderLevel.h"

#include <android/log.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace android {

namespace {

constexpr BinderLevel kDefault = BinderLevel::k28;

std::string variable() {
    const char* const value = std::getenv("KQDROID_BINDER_LEVEL");
    return value == nullptr ? "" : value;
}

/** What the environment says; empty when it names no level. */
std::optional<BinderLevel> asked() {
    const std::string text = variable();
    if (text.empty()) {
        return kDefault;
    }
    for (const BinderLevel level : {BinderLevel::k28, BinderLevel::k29, BinderLevel::k30}) {
        if (text == std::to_string(numberOf(level))) {
            return level;
        }
    }
    return std::nullopt;
}

} // namespace

std::atomic<BinderLevel> gKnownBinderLevel{};

[[gnu::cold, gnu::noinline]] BinderLevel findBinderLevel() {
    const std::optional<BinderLevel> level = asked();
    BinderLevel none{};
    const bool first = gKnownBinderLevel.compare_exchange_strong(none, level.value_or(kDefault));
    // Once, and only when it is known: a line of the log may itself lead to a request.
    if (first && !level) {
        __android_log_print(ANDROID_LOG_WARN, "kqdroid", "KQDROID_BINDER_LEVEL is \"%s\", not 28, 29 or 30; taking %d",
                            variable().c_str(), numberOf(kDefault));
    }
    return level.value_or(kDefault);
}

} // namespace android
