#pragma once

#include "tools/kelutv/compliance/results/Latencies.h"
#include "tools/kelutv/compliance/results/Run.h"

#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** What became of a check from one run to another. */
enum class Change {
    /** Fails, and did not before, or was not there. */
    newlyFailed,
    /** Passes, and failed before, as was expected or not. */
    newlyPassed,
    /** Another verdict otherwise. */
    changed,
    /** Was not there before, and does not fail. */
    added,
    /** Is not there any more. */
    gone,
};

/** `newly failed`. */
const char* wordsOf(Change change);

struct ChangedCheck {
    Change change;
    std::string id;
    /** Nothing where a run does not have it. */
    std::optional<Verdict> before;
    std::optional<Verdict> after;
    /** Why the verdict is what it is. */
    std::string reason;
};

/** Answers of a family's checks of a module that take longer or shorter than they did. */
struct ChangedLatency {
    std::string family;
    std::string module;
    LatencySummary before;
    LatencySummary after;

    bool isSlower() const { return after.p50 > before.p50; }
};

struct RunComparison {
    /** What newly failed first, in the order of `Change`; each by the order of its run. */
    std::vector<ChangedCheck> checks;
    std::vector<ChangedLatency> latencies;
};

/**
 * Compares two runs by the identifiers of their checks.
 *
 * @param factor by how much p50 of a module's answers must have changed to be told
 */
RunComparison compare(const Run& before, const Run& after, double factor);

} // namespace kelutv::tool::compliance
