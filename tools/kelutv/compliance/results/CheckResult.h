#pragma once

#include "tools/kelutv/compliance/results/Verdict.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** A request and what came back. */
struct Exchange {
    /** The code of the transaction. */
    std::uint32_t command = 0;
    /** All of its bytes, or as many as are kept. */
    std::vector<std::uint8_t> request;
    /** What the transport said; 0 when a reply came. */
    std::int32_t status = 0;
    std::vector<std::uint8_t> reply;
};

/** The identifier of what says at the end of a run whether all that could be put back is as it was. */
constexpr char kPutBackCheck[] = "state.television.unchanged";

/** What came of one check. */
struct CheckResult {
    /** Stable from run to run: `form.audio.getVolume[channel=speaker].terminated`. */
    std::string id;
    /** `form`, `state`, `refusal`, `events`, `load`, `life` or `person`. */
    std::string family;
    std::string module;
    /** The function's full name; empty where the check is of none. */
    std::string function;
    /** What is checked, and why. */
    std::string sentence;
    Verdict verdict = Verdict::inconclusive;
    /** Why the verdict is what it is; empty when it passed. */
    std::string reason;
    /** The exchange that decided. */
    std::optional<Exchange> exchange;
    /** How long each answer took. */
    std::vector<std::chrono::nanoseconds> latencies;
    /** Whether it was broken off, so that a request of it may still be carried out. */
    bool isGivenUp = false;
};

} // namespace kelutv::tool::compliance
