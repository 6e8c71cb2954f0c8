// The verb show: all that the television keeps, in lines that bring it back.

#include "simulator/control/ControlActions.h"
#include "simulator/control/ControlValues.h"
#include "simulator/control/StateLines.h"
#include "simulator/television/Power.h"
#include "simulator/television/StateRequests.h"
#include "simulator/text/Join.h"
#include "simulator/text/Tokenizer.h"
#include "wire/text/Pattern.h"
#include "wire/text/Quote.h"
#include "wire/text/Shown.h"

namespace kelutv::simulator {

namespace {

using Lines = std::vector<std::string>;

void append(Lines& lines, const Lines& more) { lines.insert(lines.end(), more.begin(), more.end()); }

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
    return "cec put logAddr=" + std::to_string(device.logAddr) + " hdmiDevPort=" + std::to_string(device.hdmiDevPort) +
           " name=" + wire::inQuotes(device.name) + " phyAddr=" + wire::inQuotes(device.phyAddr) +
           " listText=" + wire::inQuotes(device.listText) + " plugged=" + (device.plugged ? '1' : '0');
}

/** The devices, which there are and in which order, and the one that plays. */
Lines cecLines(Equipment& equipment, const wire::Pattern& pattern) {
    Lines lines;
    std::string keeping = "cec keep";
    for (const CecDevice& device : equipment.cec.all()) {
        if (pattern.matches("cec " + device.name)) {
            lines.push_back(deviceLine(device));
        }
        keeping += ' ' + std::to_string(device.logAddr);
    }
    if (pattern.matches("cec")) {
        append(lines, {keeping, "cec play " + std::to_string(equipment.cec.playing())});
    }
    return lines;
}

Lines powerLines(Equipment& equipment, const wire::Pattern& pattern) {
    const Power& power = equipment.power;
    const std::string line = "power " + nameOf(power.state()) +
                             " lastPowerOffMode=" + std::to_string(power.lastPowerOffMode()) +
                             " wakeupMode=" + std::to_string(power.wakeupMode());
    return pattern.matches("power") ? Lines{line} : Lines{};
}

/**
 * The place of a state among the lines. Setting one that selects or deselects a source sets others as well, so these go
 * first, and the one that was done last is the last of them. So do those that have more set with them.
 */
int rankOf(const Equipment& equipment, const wire::StateKey& key) {
    const StateSettings& settings = equipment.configuration.settings(key);
    if (isSetByCommandOfItsOwn(key)) {
        return 0;
    }
    if (settings.indexIsSource) {
        return equipment.sources.isShown() ? 0 : 2;
    }
    return settings.valueIsSource ? 1 : 3;
}

/** What else was set goes first, to make room. */
Lines stateLines(Equipment& equipment, const wire::Pattern& pattern) {
    Lines resets;
    Lines sets;
    for (int rank = 0; rank <= 3; ++rank) {
        for (const wire::StateKey& key : wire::allStates()) {
            if (rankOf(equipment, key) == rank && pattern.matches(key.name)) {
                append(resets, resetLinesOf(equipment, key));
                append(sets, linesOf(equipment, key));
            }
        }
    }
    append(resets, sets);
    return resets;
}

Lines everyLine(Equipment& equipment, const wire::Pattern& pattern) {
    Lines all;
    for (const auto& part : {sourceLines, cecLines, powerLines, stateLines}) {
        append(all, part(equipment, pattern));
    }
    return all;
}

} // namespace

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
