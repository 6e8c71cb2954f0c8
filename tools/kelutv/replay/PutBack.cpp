#include "tools/kelutv/replay/PutBack.h"

#include "tools/kelutv/snapshot/Setters.h"
#include "tools/kelutv/snapshot/StateRules.h"
#include "tools/kelutv/snapshot/StateText.h"
#include "tools/kelutv/snapshot/Taking.h"

#include <algorithm>
#include <set>

namespace kelutv::tool {

namespace {

/** The states that are set, each with its keys. */
using States = std::map<std::string, const wire::StateKey*>;

bool anyChanges(const std::vector<wire::Effect>& effects) {
    return std::any_of(effects.begin(), effects.end(), [](const wire::Effect& effect) {
        return effect.kind == wire::EffectKind::Set || effect.kind == wire::EffectKind::Action;
    });
}

/** Puts the state that the request sets to the states, or else what it changes to what is lost. */
void add(const wire::Request& request, States& states, std::map<std::string, std::string>& lost) {
    const std::vector<wire::Effect> effects = effectsOf(request);
    if (effects.empty()) {
        lost.emplace(requestNameOf(request), "the catalogue does not know what it does");
        return;
    }
    if (request.refusal || !anyChanges(effects)) {
        return;
    }
    const wire::StateRule& rule = operationFor(request).rule;
    if (rule.access == wire::StateRule::Access::Set) {
        states.emplace(stateText(*rule.key, wire::valuesOf(rule.indexes, request.arguments)), rule.key);
        return;
    }
    lost.emplace(requestNameOf(request), "the catalogue has no state that it sets");
}

/** Everything that reads one of the states, under all keys. */
Readings readingsOf(const States& states) {
    std::set<const wire::StateKey*> keys;
    for (const auto& [state, key] : states) {
        keys.insert(key);
    }
    Readings readings;
    for (Reading& reading : allReadings().asked) {
        const wire::StateRule* const rule = ruleOf(*reading.function);
        if (rule != nullptr && keys.count(rule->key) != 0) {
            readings.asked.push_back(std::move(reading));
        }
    }
    return readings;
}

} // namespace

StatesToSet statesSetBy(const std::vector<RecordedCall>& calls, double limit) {
    StatesToSet set;
    States states;
    for (const RecordedCall& call : calls) {
        add(requestOf(call.happening).request, states, set.lost);
    }
    const Snapshot snapshot = takeSnapshot(readingsOf(states), limit);
    for (const MissingState& missing : snapshot.missing) {
        if (states.erase(missing.state) > 0) {
            set.lost.emplace(missing.state, missing.reason);
        }
    }
    for (const HeldState& held : snapshot.held) {
        if (states.erase(held.state) == 0) {
            continue;
        }
        if (settersOf(held).empty()) {
            set.lost.emplace(held.state, "nothing sets it back");
        } else {
            set.held.push_back(held);
        }
    }
    for (const auto& [state, key] : states) {
        set.lost.emplace(state, "nothing reads it");
    }
    return set;
}

} // namespace kelutv::tool
