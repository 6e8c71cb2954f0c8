#include "tools/kelutv/snapshot/Restoring.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/checks/Visit.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/PuttingBack.h"
#include "tools/kelutv/snapshot/Setters.h"
#include "tools/kelutv/snapshot/StateReader.h"

#include <algorithm>
#include <exception>
#include <utility>

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
    const FoundCall found = callPuttingBack(held);
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

using Tell = std::function<void(const Restored& restored)>;

/** Tells until that fails, which must not keep what follows from being set. */
class Teller {
public:
    explicit Teller(Tell tell) : mTell(std::move(tell)) {}

    void tell(const Restored& restored) {
        if (mFailure) {
            return;
        }
        try {
            mTell(restored);
        } catch (const ToolError&) {
            mFailure = std::current_exception();
        }
    }

    void throwFailure() const {
        if (mFailure) {
            std::rethrow_exception(mFailure);
        }
    }

private:
    const Tell mTell;
    std::exception_ptr mFailure;
};

bool isSet(const Restored& restored) { return restored.isAsWanted() && !restored.call.empty(); }

/** What going through the states once gave. */
struct Round {
    /** Of each state, up to where it was broken off. */
    std::vector<Restored> restored;
    /** Why there is no service; empty when there is one. */
    std::string unlinked;
};

Round goThrough(const RestoreOrder& order, const Tell& tell) {
    std::vector<Check> checks;
    for (const HeldState& held : order.states) {
        checks.push_back({held.state, held.reading.function->module, order.limit, [&held, &order] {
                              return askingFinds([&] { return findingOf(putBack(held, order.isRehearsal)); });
                          }});
    }
    Round round;
    const Listener listener{nullptr, [&](const Check& /*check*/, const Finding& finding) {
                                if (finding.verdict == Verdict::Unlinked) {
                                    round.unlinked = finding.text;
                                    return;
                                }
                                round.restored.push_back(restoredIn(order.states[round.restored.size()], finding));
                                if (isSet(round.restored.back())) {
                                    tell(round.restored.back());
                                }
                            }};
    makeChecks(checks, listener);
    return round;
}

bool hasSetAny(const std::vector<Restored>& all) { return std::any_of(all.begin(), all.end(), isSet); }

/** What a further round found goes over what the rounds before it did. */
void update(std::vector<Restored>& all, const std::vector<Restored>& round) {
    for (std::size_t i = 0; i < round.size(); ++i) {
        if (i == all.size()) {
            all.push_back(round[i]);
        } else if (!round[i].call.empty() || !round[i].isAsWanted()) {
            const Json before = all[i].call.empty() ? round[i].before : all[i].before;
            all[i] = round[i];
            all[i].before = before;
        } else {
            all[i].complaint.clear();
        }
    }
}

/** @throws LinkError, ToolError when the round was broken off, having told what is not as wanted */
void requireWhole(const Round& round, const RestoreOrder& order, const std::vector<Restored>& all, const Tell& tell) {
    if (round.restored.size() == order.states.size()) {
        return;
    }
    for (const Restored& each : all) {
        if (!each.isAsWanted()) {
            tell(each);
        }
    }
    if (!round.unlinked.empty()) {
        throw LinkError(round.unlinked);
    }
    throw ToolError(Exit::TimeOver, "nothing is answered any longer; --limit gives each answer more time");
}

/** Goes through the states and puts what became of them into the list. @return whether any was set, or would be */
bool goOn(const RestoreOrder& order, std::vector<Restored>& all, const Tell& tell) {
    const Round round = goThrough(order, tell);
    update(all, round.restored);
    requireWhole(round, order, all, tell);
    return hasSetAny(round.restored);
}

/** Reads all once more: what was set last may have changed what was as wanted before. */
void readAgain(RestoreOrder order, std::vector<Restored>& all, const Tell& tell) {
    order.isRehearsal = true;
    const Round round = goThrough(order, [](const Restored&) {});
    for (std::size_t i = 0; i < round.restored.size(); ++i) {
        const Restored& found = round.restored[i];
        if (all[i].isAsWanted() && !(found.isAsWanted() && found.call.empty())) {
            all[i].after = found.before;
            all[i].complaint = found.isAsWanted() ? "changes when another state is set" : found.complaint;
        }
    }
    requireWhole(round, order, all, tell);
}

} // namespace

std::vector<Restored> restore(const RestoreOrder& order, const Tell& hear) {
    constexpr int kMostRounds = 4;
    Teller teller(hear);
    const Tell tell = [&teller](const Restored& restored) { teller.tell(restored); };
    RestoreOrder sorted = order;
    std::stable_sort(sorted.states.begin(), sorted.states.end(),
                     [](const HeldState& left, const HeldState& right) { return turnOf(left) < turnOf(right); });
    std::vector<Restored> all;
    bool isUnsettled = goOn(sorted, all, tell) && !order.isRehearsal;
    for (int round = 1; round < kMostRounds && isUnsettled; ++round) {
        isUnsettled = goOn(sorted, all, tell);
    }
    if (isUnsettled) {
        readAgain(sorted, all, tell);
    }
    teller.throwFailure();
    return all;
}

} // namespace kelutv::tool
