#include "tools/kelutv/snapshot/Setters.h"

#include "tools/kelutv/snapshot/StateRules.h"
#include "tools/kelutv/snapshot/StateText.h"
#include "wire/StateForm.h"

#include <algorithm>
#include <limits>
#include <map>
#include <string>

namespace kelutv::tool {

namespace {

using Setters = std::vector<const wire::Function*>;

/** The state that a function can put back; null when there is none. */
const wire::StateKey* stateOf(const wire::Function& function) {
    if (function.effect.kind != wire::EffectKind::Set || function.effect.back == nullptr) {
        return nullptr;
    }
    const wire::StateRule* const rule = ruleOf(function);
    return rule != nullptr && rule->access == wire::StateRule::Access::Set ? rule->key : nullptr;
}

/** The functions that the catalogue says can put something back. */
struct Table {
    std::map<const wire::StateKey*, Setters> byState;
    /** Of functions without a state, by the name of the one that reads back. */
    std::map<std::string, Setters> byReader;
};

void putHarmlessFirst(Setters& setters) {
    std::stable_partition(setters.begin(), setters.end(),
                          [](const wire::Function* setter) { return !setter->effect.isDangerous; });
}

Table makeTable() {
    Table table;
    for (const wire::Function& function : wire::allFunctions()) {
        if (const wire::StateKey* const key = stateOf(function)) {
            table.byState[key].push_back(&function);
        } else if (function.effect.back != nullptr && ruleOf(function) == nullptr) {
            table.byReader[function.effect.back].push_back(&function);
        }
    }
    for (auto& [key, setters] : table.byState) {
        putHarmlessFirst(setters);
    }
    for (auto& [reader, setters] : table.byReader) {
        putHarmlessFirst(setters);
    }
    return table;
}

/** Whether the reading gives nothing but one value of its own. */
bool isPlainResult(const HeldState& held) {
    return held.values.entries().size() == 1 && held.reading.function->result.kind == wire::ValueKind::Single;
}

/** How many reading operations have keys of each enumeration. */
const std::map<const wire::Enumeration*, int>& keyEnumerations() {
    static const auto counted = [] {
        std::map<const wire::Enumeration*, int> counts;
        for (const wire::Function& function : wire::allFunctions()) {
            for (const wire::Parameter& parameter : function.parameters) {
                const bool isKey = function.effect.kind == wire::EffectKind::Read &&
                                   parameter.direction != wire::Direction::Out && parameter.values.names != nullptr;
                counts[parameter.values.names] += isKey ? 1 : 0;
            }
        }
        return counts;
    }();
    return counted;
}

const wire::Enumeration* namesOfValue(const HeldState& held) {
    const wire::StateKey* const key = stateNamedIn(held.state);
    if (key == nullptr) {
        return isPlainResult(held) ? held.reading.function->result.names : nullptr;
    }
    const wire::StateForm form = wire::formOf(*key);
    return form.values.size() == 1 ? form.values.front().names : nullptr;
}

} // namespace

std::vector<const wire::Function*> settersOf(const HeldState& held) {
    static const Table table = makeTable();
    const wire::StateKey* const key = stateNamedIn(held.state);
    if (key == nullptr) {
        const auto found = table.byReader.find(held.reading.function->name);
        return found != table.byReader.end() && isPlainResult(held) ? found->second : Setters();
    }
    const auto found = table.byState.find(key);
    return found != table.byState.end() ? found->second : Setters();
}

bool isDangerous(const HeldState& held) {
    const auto setters = settersOf(held);
    return !setters.empty() && std::all_of(setters.begin(), setters.end(),
                                           [](const wire::Function* setter) { return setter->effect.isDangerous; });
}

int turnOf(const HeldState& held) {
    constexpr int kPlain = std::numeric_limits<int>::max();
    const wire::Enumeration* const names = namesOfValue(held);
    if (names == nullptr) {
        return kPlain;
    }
    const auto found = keyEnumerations().find(names);
    return kPlain - 1 - (found != keyEnumerations().end() ? found->second : 0);
}

} // namespace kelutv::tool
