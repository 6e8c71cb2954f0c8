// States by name: set, get and show.

#include "simulator/control/ControlActions.h"
#include "simulator/control/ControlValues.h"
#include "simulator/television/Power.h"
#include "simulator/television/SlotAccess.h"
#include "wire/StateForm.h"
#include "wire/text/Pattern.h"
#include "wire/text/Quote.h"

#include <set>

namespace kelutv::simulator {

namespace {

using Lines = std::vector<std::string>;

/** The keys for which something is known to be kept. */
std::set<wire::Values> knownKeys(const Equipment& equipment, const wire::StateSlot& slot) {
    std::set<wire::Values> keys;
    if (slot.keys.size() == 0) {
        return {wire::Values{}};
    }
    for (const auto& entry : equipment.state.all()) {
        if (entry.first.first == &slot) {
            keys.insert(entry.first.second);
        }
    }
    const SlotSettings& settings = equipment.configuration.settings(slot);
    if (slot.keys.size() == 1) {
        for (const auto& initial : settings.initialByKey) {
            keys.insert({initial.first});
        }
        for (const std::int32_t source : settings.keyIsSource ? equipment.sources.ids() : std::vector<std::int32_t>()) {
            if (equipment.sources.workedOut(slot, {source})) {
                keys.insert({source});
            }
        }
    }
    return keys;
}

std::string lineOf(Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys) {
    const Reading reading = readLikeRequest(equipment, slot, keys);
    if (reading.refusal) {
        throw BadLine(reading.refusal->text);
    }
    return inWords(slot, keys, reading.values);
}

/** A line for each of the known keys, as a remark where it does more than keep a value, and one on all other keys. */
Lines linesOf(Equipment& equipment, const wire::StateSlot& slot) {
    Lines lines;
    for (const wire::Values& keys : knownKeys(equipment, slot)) {
        const std::string remark = isJustKept(equipment, slot, keys) ? "" : "# ";
        lines.push_back(remark + lineOf(equipment, slot, keys));
    }
    const SlotSettings& settings = equipment.configuration.settings(slot);
    const wire::Values anyKeys(slot.keys.size(), std::int32_t{0});
    if (!anyKeys.empty() && !settings.keyIsSource && isJustKept(equipment, slot, anyKeys)) {
        const wire::Values initial = wire::completed(wire::formOf(slot), settings.initial);
        lines.push_back("# " + std::string(slot.name) + " of any other key: " + inWords(initial));
    }
    return lines;
}

std::string signalLine(const std::string& name, const Signal& signal) {
    std::string line = "signal " + name;
    for (const auto& [slot, values] : signal) {
        line += ' ' + std::string(slot->name) + '=' + inWords(values, ",");
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
int rankOf(const Equipment& equipment, const wire::StateSlot& slot) {
    const SlotSettings& settings = equipment.configuration.settings(slot);
    if (settings.keyIsSource) {
        return equipment.sources.isShown() ? 0 : 2;
    }
    return settings.valueIsSource ? 1 : 3;
}

Lines stateLines(Equipment& equipment, const wire::Pattern& pattern) {
    Lines lines;
    for (int rank = 0; rank <= 3; ++rank) {
        for (const wire::StateSlot& slot : wire::allStates()) {
            if (rankOf(equipment, slot) == rank && pattern.matches(slot.name)) {
                const Lines more = linesOf(equipment, slot);
                lines.insert(lines.end(), more.begin(), more.end());
            }
        }
    }
    return lines;
}

} // namespace

std::string set(Equipment& equipment, const std::string& rest) {
    const Assignment assignment = assignmentOf(unwrapped(rest));
    if (assignment.name.empty() || !assignment.values) {
        throw BadLine("set takes STATE[KEY...] = VALUE...");
    }
    const wire::StateSlot& slot = slotNamed(assignment.name);
    const wire::Values keys = keysOf(slot, assignment.keys);
    if (const auto refusal = setLikeRequest(equipment, slot, keys, valuesOf(slot, *assignment.values))) {
        throw BadLine(refusal->text);
    }
    return "";
}

std::string get(Equipment& equipment, const std::string& rest) {
    const Assignment assignment = assignmentOf(unwrapped(rest));
    if (assignment.name.empty() || assignment.values) {
        throw BadLine("get takes STATE[KEY...]");
    }
    const wire::StateSlot& slot = slotNamed(assignment.name);
    const Lines all = assignment.keys.empty() && slot.keys.size() > 0 ? linesOf(equipment, slot) : Lines();
    if (!all.empty()) {
        return joinedLines(all);
    }
    const wire::Values keys = keysOf(slot, assignment.keys);
    return lineOf(equipment, slot, keys);
}

std::string show(Equipment& equipment, const std::string& rest) {
    const std::string text = unwrapped(rest);
    const wire::Pattern pattern(text, wire::stateNames());
    Lines all;
    for (const auto& part : {sourceLines, cecLines, powerLines, stateLines}) {
        const Lines lines = part(equipment, pattern);
        all.insert(all.end(), lines.begin(), lines.end());
    }
    if (all.empty()) {
        throw BadLine("nothing matches '" + text + "'");
    }
    return joinedLines(all);
}

} // namespace kelutv::simulator
