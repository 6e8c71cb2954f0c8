#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace kelutv::tool {

enum class Verdict : std::uint32_t {
    Good,
    /** Was not asked, which says nothing of whether anything is answered. */
    Unasked,
    /** Works, but somebody should look at it. */
    Warning,
    Bad,
    /** Asked in vain: there is no service to ask, or no longer. */
    Unlinked,
    /** There was no answer in time. */
    TimeOver,
};

/** What came of one check. */
struct Finding {
    Verdict verdict = Verdict::Good;
    /** One line. */
    std::string text;
    /** How long what was asked took to answer; 0 where nothing was asked. */
    std::chrono::nanoseconds time{0};
};

} // namespace kelutv::tool
