// The verbs of states: set, get and show.

#include "simulator/control/ControlActions.h"
#include "simulator/control/ControlValues.h"
#include "simulator/television/Power.h"
#include "simulator/television/StateRequests.h"
#include "simulator/text/Join.h"
#include "simulator/text/Tokenizer.h"
#include "wire/StateForm.h"
#include "wire/text/Pattern.h"
#include "wire/text/Quote.h"
#include "wire/text/Shown.h"

#include <set>

namespace kelutv::simulator {

namespace {

using Lines = std::vector<std::string>;

/** The indexes under which something is known to be kept. */
std::set<wire::Values> knownIndexes(const Equipment& equipment, const wire::StateKey& key) {
    std::set<wire::Values> indexes;
    if (key.indexes.size() == 0) {
        return {wire::Values{}};
    }
    for (const auto& entry : equipment.state.all()) {
        if (entry.first.first == &key) {
            indexes.insert(entry.first.second);
        }
    }
    const StateSettings& settings = equipment.configuration.settings(key);
    if (key.indexes.size() == 1) {
        for (const auto& initial : settings.initialByIndex) {
            indexes.insert({initial.first});
        }
        for (const std::int32_t source :
             settings.indexIsSource ? equipment.sources.ids() : std::vector<std::int32_t>()) {
            if (equipment.sources.derived(key, {source})) {
                indexes.insert({source});
            }
        }
    }
    return indexes;
}

std::string lineOf(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes) {
    const Reading reading = readByRequest(equipment, key, indexes);
    if (reading.refusal) {
        throw BadLine(reading.refusal->text);
    }
    return textOf(key, indexes, reading.values);
}

/** A line for the value at each known index, as a remark where setting it does more than keep it, and one for all
 * others. */
Lines linesOf(Equipment& equipment, const wire::StateKey& key) {
    Lines lines;
    for (const wire::Values& indexes : knownIndexes(equipment, key)) {
        const std::string remark = isPlainState(equipment, key, indexes) ? "" : "# ";
        lines.push_back(remark + lineOf(equipment, key, indexes));
    }
    const StateSettings& settings = equipment.configuration.settings(key);
    const wire::Values anyIndexes(key.indexes.size(), std::int32_t{0});
    if (!anyIndexes.empty() && !settings.indexIsSource && isPlainState(equipment, key, anyIndexes)) {
        const wire::Values initial = wire::completed(wire::formOf(key), settings.initial);
        lines.push_back("# " + std::string(key.name) + " of any other key: " + textOf(initial));
    }
    return lines;
}

std::string signalLine(const std::string& name, const Signal& signal) {
    std::string line = "signal " + name;
    for (const auto& [key, values] : signal) {
        line += ' ' + std::string(key->name) + '=' + textOf(values, ",");
    }
    return line;
}

Lines sourceLines(Equipment& equipment, const wire::Pattern& pattern) {
    Lines lines;
    for (const std::int32_t id : equipment.sources.ids()) {
        const std::string& name = equipment.sources.nameOf(id);
        if (pattern.matches("source " + name)) {
            lines.push_back((equipment.sources.isPlugged(id) ? "plug " : "unplug ") + name);
            lines.push_back(signalLine(name, equipment.sources.signalAt(id)));
        }
    }
    return lines;
}

std::string deviceLine(const CecDevice& device) {
    return "cec add logAddr=" + std::to_string(device.logAddr) + " hdmiDevPort=" + std::to_string(device.hdmiDevPort) +
           " name=" + wire::inQuotes(device.name) + " phyAddr=" + wire::inQuotes(device.phyAddr) +
           " listText=" + wire::inQuotes(device.listText) + " plugged=" + (device.plugged ? '1' : '0');
}

Lines cecLines(Equipment& equipment, const wire::Pattern& pattern) {
    Lines lines;
    for (const CecDevice& device : equipment.cec.all()) {
        if (pattern.matches("cec " + device.name)) {
            lines.push_back(deviceLine(device));
        }
    }
    if (pattern.matches("cec")) {
        lines.push_back("cec play " + std::to_string(equipment.cec.playing()));
    }
    return lines;
}

Lines powerLines(Equipment& equipment, const wire::Pattern& pattern) {
    return pattern.matches("power") ? Lines{"power " + nameOf(equipment.power.state())} : Lines{};
}

/**
 * The place of a state among the lines. Setting one that selects or deselects a source sets others as well, so these go
 * first, and the one that was done last is the last of them.
 */
int rankOf(const Equipment& equipment, const wire::StateKey& key) {
    const StateSettings& settings = equipment.configuration.settings(key);
    if (settings.indexIsSource) {
        return equipment.sources.isShown() ? 0 : 2;
    }
    return settings.valueIsSource ? 1 : 3;
}

Lines stateLines(Equipment& equipment, const wire::Pattern& pattern) {
    Lines lines;
    for (int rank = 0; rank <= 3; ++rank) {
        for (const wire::StateKey& key : wire::allStates()) {
            if (rankOf(equipment, key) == rank && pattern.matches(key.name)) {
                const Lines more = linesOf(equipment, key);
                lines.insert(lines.end(), more.begin(), more.end());
            }
        }
    }
    return lines;
}

Lines everyLine(Equipment& equipment, const wire::Pattern& pattern) {
    Lines all;
    for (const auto& part : {sourceLines, cecLines, powerLines, stateLines}) {
        const Lines lines = part(equipment, pattern);
        all.insert(all.end(), lines.begin(), lines.end());
    }
    return all;
}

/** What is known of a state that has keys. */
std::string allLinesOf(Equipment& equipment, const wire::StateKey& key) {
    const Lines all = linesOf(equipment, key);
    return all.empty() ? lineOf(equipment, key, indexesOf(key, {})) : joinedLines(all);
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

Deed show(const Configuration&, const std::string& rest) {
    const std::string text = unwrapped(rest);
    return [text, pattern = wire::Pattern(text, wire::stateNames())](Equipment& equipment) {
        const Lines all = everyLine(equipment, pattern);
        if (all.empty()) {
            throw BadLine("nothing matches '" + wire::shown(text) + "'");
        }
        return joinedLines(all);
    };
}

} // namespace kelutv::simulator
