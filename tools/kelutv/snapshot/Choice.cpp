#include "tools/kelutv/snapshot/Choice.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/Setters.h"
#include "wire/text/Letters.h"
#include "wire/text/Pattern.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <iterator>

namespace kelutv::tool {

namespace {

using States = std::vector<HeldState>;

template <typename Predicate> States statesThat(const States& states, Predicate isWanted) {
    States wanted;
    std::copy_if(states.begin(), states.end(), std::back_inserter(wanted), isWanted);
    return wanted;
}

/** @throws UsageError with the complaint when one of the patterns means none of the states */
void requireMatches(const std::string& complaint, const std::vector<std::string>& patterns, const States& states) {
    for (const std::string& pattern : patterns) {
        const bool isUsed = std::any_of(states.begin(), states.end(),
                                        [&](const HeldState& held) { return isMeant(held.state, {pattern}); });
        if (!isUsed) {
            throw UsageError(complaint + " '" + wire::shown(pattern) + '\'');
        }
    }
}

} // namespace

bool isMeant(const std::string& state, const std::vector<std::string>& patterns) {
    return std::any_of(patterns.begin(), patterns.end(), [&state](const std::string& pattern) {
        // The brackets around keys are not those of a pattern when the whole name is given.
        return wire::lowered(pattern) == wire::lowered(state) || wire::Pattern(pattern).matches(state);
    });
}

void refuseEmpty(const std::string& option, const std::vector<std::string>& patterns) {
    if (std::any_of(patterns.begin(), patterns.end(), [](const std::string& pattern) { return pattern.empty(); })) {
        throw UsageError(option + " takes the name of a state or a pattern, not ''; '*' means all");
    }
}

Chosen chosenFrom(const Snapshot& snapshot, const std::vector<std::string>& only,
                  const std::vector<std::string>& dangerous) {
    refuseEmpty("--only", only);
    refuseEmpty("--allow-dangerous", dangerous);
    const States settable = statesThat(snapshot.held, [](const HeldState& held) { return !settersOf(held).empty(); });
    requireMatches("--only: no state of the file that can be put back matches", only, settable);
    requireMatches("--allow-dangerous: no dangerous state of the file that can be put back matches", dangerous,
                   statesThat(settable, isDangerous));
    Chosen chosen;
    for (const HeldState& held : settable) {
        if (only.empty() || isMeant(held.state, only)) {
            const bool isLeftAlone = isDangerous(held) && !isMeant(held.state, dangerous);
            (isLeftAlone ? chosen.leftAlone : chosen.states).push_back(held);
        }
    }
    return chosen;
}

} // namespace kelutv::tool
