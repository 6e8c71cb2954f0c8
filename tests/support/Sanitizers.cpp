#include "support/Sanitizers.h"

#include <cstdlib>

namespace kelutv::test {

std::string sanitizerOptions() {
    const char* const options = std::getenv("ASAN_OPTIONS");
    return "ASAN_OPTIONS=" + (options != nullptr ? std::string(options) + ":" : "") + "verify_asan_link_order=0";
}

} // namespace kelutv::test
