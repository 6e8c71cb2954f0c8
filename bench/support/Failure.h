#pragma once

namespace kelutv::bench {

/** Says on standard error what could not be done, and ends the measurement with all its processes. */
[[noreturn]] void giveUp(const char* what);

/** The same with the reason in errno. */
[[noreturn]] void fail(const char* what);

/** Fails unless `done`. */
inline void require(bool done, const char* what) {
    if (!done) {
        fail(what);
    }
}

} // namespace kelutv::bench
