#pragma once

#include <android/log.h>

#include <cstdlib>
#include <new>

/** What ends in no answer: a command call that did not get through, and memory that is out. */
namespace kelutv::internal {

constexpr char kLinkTag[] = "TVBaseService@Client";

/** What every command call gives when the service gave no answer. */
constexpr int kFailed = -1;

inline void logFailedCall() { __android_log_print(ANDROID_LOG_ERROR, kLinkTag, "invoke failure\n"); }

[[noreturn, gnu::cold, gnu::noinline]] inline void endOutOfMemory() noexcept {
    __android_log_print(ANDROID_LOG_FATAL, kLinkTag, "out of memory");
    std::abort();
}

/** What `work` gives. An allocation that fails in it ends the process, and so no exception reaches the caller. */
template <typename Work> decltype(auto) allocating(Work work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        endOutOfMemory();
    }
}

} // namespace kelutv::internal
