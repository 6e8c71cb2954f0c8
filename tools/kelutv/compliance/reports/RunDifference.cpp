#include "tools/kelutv/compliance/reports/RunDifference.h"

#include <algorithm>
#include <map>
#include <utility>

namespace kelutv::tool::compliance {

namespace {

using ById = std::map<std::string, const CheckResult*>;
using Latencies = std::vector<std::chrono::nanoseconds>;

/** Fewer answers say little of how long one takes. */
constexpr std::size_t kFewestAnswers = 20;

ById byId(const Run& run) {
    ById results;
    for (const CheckResult& result : run.results) {
        results.emplace(result.id, &result);
    }
    return results;
}

bool hasFailed(Verdict verdict) { return verdict == Verdict::failed || verdict == Verdict::expectedFailure; }

/** Nothing where a check is as it was. */
std::optional<Change> changeOf(std::optional<Verdict> before, Verdict after) {
    if (before == after) {
        return std::nullopt;
    }
    if (after == Verdict::failed) {
        return Change::newlyFailed;
    }
    if (!before) {
        return Change::added;
    }
    return after == Verdict::passed && hasFailed(*before) ? Change::newlyPassed : Change::changed;
}

std::vector<ChangedCheck> changedChecks(const Run& before, const Run& after) {
    const ById earlier = byId(before);
    const ById later = byId(after);
    std::vector<ChangedCheck> checks;
    for (const CheckResult& result : after.results) {
        const auto found = earlier.find(result.id);
        const auto verdict = found == earlier.end() ? std::nullopt : std::optional(found->second->verdict);
        if (const std::optional<Change> change = changeOf(verdict, result.verdict)) {
            checks.push_back({*change, result.id, verdict, result.verdict, result.reason});
        }
    }
    for (const CheckResult& result : before.results) {
        if (later.count(result.id) == 0) {
            checks.push_back({Change::gone, result.id, result.verdict, std::nullopt, ""});
        }
    }
    std::stable_sort(checks.begin(), checks.end(),
                     [](const ChangedCheck& left, const ChangedCheck& right) { return left.change < right.change; });
    return checks;
}

/** By family and module. */
std::map<std::pair<std::string, std::string>, Latencies> latenciesOf(const Run& run) {
    std::map<std::pair<std::string, std::string>, Latencies> latencies;
    for (const CheckResult& result : run.results) {
        Latencies& all = latencies[{result.family, result.module}];
        all.insert(all.end(), result.latencies.begin(), result.latencies.end());
    }
    return latencies;
}

bool isFurther(std::chrono::nanoseconds before, std::chrono::nanoseconds after, double factor) {
    const auto [least, greatest] = std::minmax(before, after);
    return static_cast<double>(greatest.count()) > factor * static_cast<double>(least.count());
}

std::vector<ChangedLatency> changedLatencies(const Run& before, const Run& after, double factor) {
    const auto earlier = latenciesOf(before);
    std::vector<ChangedLatency> changed;
    for (const auto& [key, latencies] : latenciesOf(after)) {
        const auto found = earlier.find(key);
        if (found == earlier.end() || std::min(found->second.size(), latencies.size()) < kFewestAnswers) {
            continue;
        }
        const ChangedLatency each{key.first, key.second, summaryOf(found->second), summaryOf(latencies)};
        if (isFurther(each.before.p50, each.after.p50, factor)) {
            changed.push_back(each);
        }
    }
    return changed;
}

} // namespace

const char* wordsOf(Change change) {
    switch (change) {
    case Change::newlyFailed:
        return "newly failed";
    case Change::newlyPassed:
        return "newly passed";
    case Change::changed:
        return "changed";
    case Change::added:
        return "new";
    case Change::gone:
        break;
    }
    return "gone";
}

RunComparison compare(const Run& before, const Run& after, double factor) {
    return {changedChecks(before, after), changedLatencies(before, after, factor)};
}

} // namespace kelutv::tool::compliance
