// The verbs of states: set, get and reset.

#include "simulator/control/ControlActions.h"
#include "simulator/control/ControlValues.h"
#include "simulator/control/StateLines.h"
#include "simulator/television/StateAccess.h"
#include "simulator/television/StateRequests.h"
#include "simulator/text/Join.h"
#include "simulator/text/Tokenizer.h"

#include <algorithm>
#include <set>

namespace kelutv::simulator {

namespace {

/** What is known of a state that has keys. */
std::string allLinesOf(Equipment& equipment, const wire::StateKey& key) {
    const std::vector<std::string> all = linesOf(equipment, key);
    return all.empty() ? lineOf(equipment, key, indexesOf(key, {})) : joinedLines(all);
}

using AnyIndexes = std::set<wire::Values>;

/** The keys that stand behind `except`, each set of them in brackets. */
AnyIndexes exceptedIndexes(const wire::StateKey& key, const Tokens& tokens) {
    AnyIndexes excepted;
    for (std::size_t i = 2; i < tokens.size(); ++i) {
        excepted.insert(indexesOf(key, assignmentOf(key.name + tokens[i].raw).indexes));
    }
    return excepted;
}

void resetAll(Equipment& equipment, const wire::StateKey& key, const AnyIndexes& excepted) {
    AnyIndexes others;
    for (const auto& entry : equipment.state.all()) {
        if (entry.first.first == &key && excepted.count(entry.first.second) == 0) {
            others.insert(entry.first.second);
        }
    }
    for (const wire::Values& indexes : others) {
        resetState(equipment, key, indexes);
    }
}

void requireKept(const Equipment& equipment, const wire::StateKey& key) {
    if (!isKeptState(equipment, key)) {
        throw BadLine(std::string(key.name) + " is not a setting and has no initial value");
    }
    if (equipment.configuration.settings(key).ofSignal) {
        throw BadLine(std::string(key.name) + " shows a signal and has no initial value; signal changes it");
    }
}

} // namespace

Deed set(const Configuration&, const std::string& rest) {
    const Assignment assignment = assignmentOf(unwrapped(rest));
    if (assignment.name.empty() || !assignment.values) {
        throw BadLine("set takes STATE[KEY...] = VALUE...");
    }
    const wire::StateKey& key = stateNamed(assignment.name);
    const wire::Values indexes = indexesOf(key, assignment.indexes);
    return [&key, indexes, values = valuesOf(key, *assignment.values)](Equipment& equipment) {
        if (const auto refusal = setByRequest(equipment, key, indexes, values)) {
            throw BadLine(refusal->text);
        }
        return "";
    };
}

Deed get(const Configuration&, const std::string& rest) {
    const Assignment assignment = assignmentOf(unwrapped(rest));
    if (assignment.name.empty() || assignment.values) {
        throw BadLine("get takes STATE[KEY...]");
    }
    const wire::StateKey& key = stateNamed(assignment.name);
    if (assignment.indexes.empty() && key.indexes.size() > 0) {
        return [&key](Equipment& equipment) { return allLinesOf(equipment, key); };
    }
    return [&key, indexes = indexesOf(key, assignment.indexes)](Equipment& equipment) {
        return lineOf(equipment, key, indexes);
    };
}

Deed reset(const Configuration&, const std::string& rest) {
    const std::string text = unwrapped(rest);
    const Tokens tokens = tokensOf(text);
    const bool hasExceptions = tokens.size() > 2 && tokens[1].raw == "except";
    const Assignment assignment = assignmentOf(hasExceptions ? tokens[0].raw : text);
    if (assignment.name.empty() || assignment.values || assignment.name.find(' ') != std::string::npos ||
        (hasExceptions && !assignment.indexes.empty())) {
        throw BadLine("reset takes STATE, STATE[KEY...] or STATE except [KEY...] [KEY...]");
    }
    const wire::StateKey& key = stateNamed(assignment.name);
    const AnyIndexes excepted = hasExceptions ? exceptedIndexes(key, tokens) : AnyIndexes();
    if (assignment.indexes.empty()) {
        return [&key, excepted](Equipment& equipment) {
            requireKept(equipment, key);
            resetAll(equipment, key, excepted);
            return "";
        };
    }
    return [&key, indexes = indexesOf(key, assignment.indexes)](Equipment& equipment) {
        requireKept(equipment, key);
        resetState(equipment, key, indexes);
        return "";
    };
}

} // namespace kelutv::simulator
