#include "fuzz/support/Target.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    // What the product prints and logs for every other input would take most of the time.
    ::setenv("KQLOG_LEVEL", "s", 1);
    return std::freopen("/dev/null", "w", stdout) == nullptr ? 1 : 0;
}

namespace kelutv::fuzz {

void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "fuzz: this must hold and does not: %s\n", what);
        std::abort();
    }
}

void touch(const void* bytes, std::size_t length) {
    static volatile std::uint8_t sink = 0;
    const auto* const start = static_cast<const std::uint8_t*>(bytes);
    std::uint8_t sum = sink;
    for (std::size_t i = 0; i < length; ++i) {
        sum = static_cast<std::uint8_t>(sum + start[i]);
    }
    sink = sum;
}

} // namespace kelutv::fuzz
