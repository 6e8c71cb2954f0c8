#include "tools/kelutv/snapshot/Restoring.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/checks/Visit.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/PuttingBack.h"
#include "tools/kelutv/snapshot/Setters.h"
#include "tools/kelutv/snapshot/StateReader.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

/** Sets the state by this call and reads it back. */
void set(const HeldState& held, const SetCall& call, Restored& restored) {
    const CallResult result = tryFunction(*call.function, call.arguments);
    const StateRead read = readState(held.reading);
    restored.after = read.values;
    if (restored.after != restored.wanted) {
        restored.complaint = !result.failure.empty() ? "refused: " + result.failure
                             : read.refusal.empty()  ? "was taken and does not read back"
                                                     : read.refusal;
    }
}

Restored putBack(const HeldState& held, bool isRehearsal) {
    Restored restored{held.state, held.values, Json(), Json(), "", ""};
    const StateRead read = readState(held.reading);
    restored.before = read.values;
    if (read.state != held.state || !read.refusal.empty()) {
        restored.complaint = read.refusal.empty() ? "the operation reads " + read.state : read.refusal;
        return restored;
    }
    if (restored.before == restored.wanted) {
        return restored;
    }
    const FoundCall found = callPuttingBack(held, true);
    if (found.call.function == nullptr) {
        restored.complaint = "cannot be put back: " + found.complaint;
        return restored;
    }
    restored.call = commandLineOf(found.call);
    if (!isRehearsal) {
        set(held, found.call, restored);
    }
    return restored;
}

Finding findingOf(const Restored& restored) {
    return {Verdict::Good, Json{{"before", restored.before},
                                {"after", restored.after},
                                {"call", restored.call},
                                {"complaint", restored.complaint}}
                               .dump()};
}

Restored restoredIn(const HeldState& held, const Finding& finding) {
    if (finding.verdict == Verdict::Unlinked) {
        throw LinkError(finding.text);
    }
    if (finding.verdict != Verdict::Good) {
        return {held.state, held.values, Json(), Json(), "", finding.text};
    }
    const Json document = Json::parsed(finding.text);
    return {held.state,
            held.values,
            document.at("before"),
            document.at("after"),
            document.at("call").asText(),
            document.at("complaint").asText()};
}

/** Goes through all states once. */
std::vector<Restored> goThrough(const RestoreOrder& order, const std::function<void(const Restored& restored)>& tell) {
    std::vector<Check> checks;
    for (const HeldState& held : order.states) {
        checks.push_back({held.state, held.reading.function->module, order.limit, [&held, &order] {
                              return askingFinds([&] { return findingOf(putBack(held, order.isRehearsal)); });
                          }});
    }
    std::vector<Restored> all;
    const Listener listener{nullptr, [&](const Check& /*check*/, const Finding& finding) {
                                all.push_back(restoredIn(order.states[all.size()], finding));
                                if (all.back().isAsWanted() && !all.back().call.empty()) {
                                    tell(all.back());
                                }
                            }};
    if (makeChecks(checks, listener) != checks.size()) {
        throw ToolError(Exit::TimeOver, "nothing is answered any longer; --limit gives each answer more time");
    }
    return all;
}

bool hasSetAny(const std::vector<Restored>& all) {
    return std::any_of(all.begin(), all.end(),
                       [](const Restored& each) { return each.isAsWanted() && !each.call.empty(); });
}

/** What a further round found goes over what the rounds before it did. */
void update(std::vector<Restored>& all, const std::vector<Restored>& round) {
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!round[i].call.empty() || !round[i].isAsWanted()) {
            const Json before = all[i].call.empty() ? round[i].before : all[i].before;
            all[i] = round[i];
            all[i].before = before;
        } else {
            all[i].complaint.clear();
        }
    }
}

} // namespace

std::vector<Restored> restore(const RestoreOrder& order, const std::function<void(const Restored& restored)>& tell) {
    constexpr int kMostRounds = 4;
    RestoreOrder sorted = order;
    std::stable_sort(sorted.states.begin(), sorted.states.end(),
                     [](const HeldState& left, const HeldState& right) { return turnOf(left) < turnOf(right); });
    std::vector<Restored> all = goThrough(sorted, tell);
    std::vector<Restored> last = all;
    for (int round = 1; round < kMostRounds && !order.isRehearsal && hasSetAny(last); ++round) {
        last = goThrough(sorted, tell);
        update(all, last);
    }
    return all;
}

} // namespace kelutv::tool
