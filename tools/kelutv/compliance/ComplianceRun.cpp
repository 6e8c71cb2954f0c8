#include "tools/kelutv/compliance/ComplianceRun.h"

#include "tools/kelutv/compliance/Journal.h"
#include "tools/kelutv/compliance/framework/SetPlans.h"
#include "tools/kelutv/compliance/framework/Setting.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/StateText.h"
#include "tools/kelutv/snapshot/Taking.h"

#include <algorithm>

namespace kelutv::tool::compliance {

namespace {

bool changesAny(const Checks& checks) {
    return std::any_of(checks.begin(), checks.end(),
                       [](const auto& check) { return check->changesState() && check->whyLeftOut().empty(); });
}

CheckResult unjudged() {
    CheckResult result;
    result.id = kPutBackCheck;
    result.family = "state";
    result.module = "television";
    result.sentence = "When every check has put back what it set, all that can be put back is as it was before: no "
                      "request may change what it does not name.";
    result.verdict = Verdict::passed;
    return result;
}

std::string textOf(const Restored& restored) {
    const std::string text = restored.state + " was " + heldText(restored.state, restored.wanted) + " and became " +
                             heldText(restored.state, restored.before);
    return restored.isAsWanted() ? text : text + ", which stays: " + restored.complaint;
}

std::string textOf(const std::vector<Restored>& all) {
    constexpr std::size_t kMostTold = 10;
    std::string text;
    for (std::size_t i = 0; i < std::min(all.size(), kMostTold); ++i) {
        text += (text.empty() ? "" : "; ") + textOf(all[i]);
    }
    return all.size() > kMostTold ? text + "; and " + std::to_string(all.size() - kMostTold) + " others" : text;
}

/** Whether a check was given up whose set the service may carry out yet. */
bool mayStillSet(const Checks& checks, const std::vector<CheckResult>& results) {
    for (std::size_t i = 0; i < results.size(); ++i) {
        if (results[i].isGivenUp && checks[i]->changesState()) {
            return true;
        }
    }
    return false;
}

/** What of putting back keeps the file; empty when all is as before. */
std::string complaintAbout(const std::vector<Restored>& differing, bool mayChange) {
    const bool isDone =
        std::all_of(differing.begin(), differing.end(), [](const Restored& each) { return each.isAsWanted(); });
    if (!isDone) {
        return textOf(differing);
    }
    return mayChange ? "a check that sets something was given up, and the service may set it yet" +
                           (differing.empty() ? "" : "; " + textOf(differing))
                     : "";
}

/** @param mayChange whether something may be set after this */
CheckResult putBack(const Journal& journal, const RunOrder& order, const Progress& progress, bool mayChange) {
    CheckResult result = unjudged();
    std::string staying;
    try {
        const std::vector<Restored> differing = journal.putBack(order.limit);
        staying = complaintAbout(differing, mayChange);
        if (staying.empty()) {
            journal.remove();
        }
        if (staying.empty() && !differing.empty()) {
            result.verdict = Verdict::failed;
            result.reason = textOf(differing) + "; all of it was put back";
        }
    } catch (const std::exception& error) {
        staying = error.what();
    }
    if (!staying.empty()) {
        result.verdict = Verdict::failed;
        result.reason = staying + "; '" + commandPuttingBack(order.journal) + "' goes on";
        if (progress.stays) {
            progress.stays(result.reason);
        }
    }
    return result;
}

/** Makes the checks; what ends that early is thrown on when all was put back. */
std::vector<CheckResult> makeAndPutBack(const Checks& checks, const Journal& journal, const RunOrder& order,
                                        const Progress& progress) {
    std::vector<CheckResult> results;
    try {
        progress.keeps(journal.states().size());
        results = runChecks(checks, order.limit, progress.tell);
    } catch (...) {
        putBack(journal, order, progress, false);
        throw;
    }
    results.push_back(putBack(journal, order, progress, mayStillSet(checks, results)));
    return results;
}

} // namespace

std::vector<CheckResult> makeRun(const Checks& checks, const RunOrder& order, const Progress& progress) {
    if (!changesAny(checks)) {
        return runChecks(checks, order.limit, progress.tell);
    }
    Journal journal(order.journal);
    journal.keep(changeable(takeSnapshot(readingsOfPlans(), order.limit), order.terms));
    setOnly(journal.states());
    std::vector<CheckResult> results = makeAndPutBack(checks, journal, order, progress);
    progress.tell(results.back());
    return results;
}

} // namespace kelutv::tool::compliance
