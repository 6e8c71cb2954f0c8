#include "tools/kelutv/compliance/ComplianceRun.h"

#include "tools/kelutv/compliance/Journal.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/StateText.h"
#include "tools/kelutv/snapshot/Taking.h"
#include "wire/text/Shown.h"

#include <algorithm>

namespace kelutv::tool::compliance {

namespace {

bool changesAny(const Checks& checks) {
    return std::any_of(checks.begin(), checks.end(),
                       [](const auto& check) { return check->changesState() && check->whyLeftOut().empty(); });
}

CheckResult unjudged() {
    CheckResult result;
    result.id = "state.television.unchanged";
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

bool hasBrokenOff(const std::vector<CheckResult>& results) {
    return std::any_of(results.begin(), results.end(), [](const CheckResult& result) { return result.isGivenUp; });
}

CheckResult putBack(const Journal& journal, const RunOrder& order, bool mayDiffer) {
    CheckResult result = unjudged();
    const std::string finish = "; 'kelutv compliance --put-back " + wire::shown(order.journal) + "' goes on";
    try {
        const std::vector<Restored> differing = journal.putBack(order.limit);
        const bool isDone =
            std::all_of(differing.begin(), differing.end(), [](const Restored& each) { return each.isAsWanted(); });
        if (isDone) {
            journal.remove();
        }
        if (!differing.empty()) {
            result.verdict = isDone && mayDiffer ? Verdict::inconclusive : Verdict::failed;
            result.reason = textOf(differing) + (isDone ? "; all of it was put back" : finish);
        }
    } catch (const ToolError& error) {
        result.verdict = Verdict::failed;
        result.reason = error.what() + finish;
    }
    return result;
}

} // namespace

std::vector<CheckResult> makeRun(const Checks& checks, const RunOrder& order, const Progress& progress) {
    if (!changesAny(checks)) {
        return runChecks(checks, order.limit, progress.tell);
    }
    requireNoJournal(order.journal);
    Snapshot before = changeable(takeSnapshot(order.limit), order.terms);
    const std::size_t values = before.held.size();
    const Journal journal(order.journal, std::move(before));
    progress.keeps(values);
    std::vector<CheckResult> results = runChecks(checks, order.limit, progress.tell);
    results.push_back(putBack(journal, order, hasBrokenOff(results)));
    progress.tell(results.back());
    return results;
}

} // namespace kelutv::tool::compliance
