// The verbs of the inputs: plug, unplug, signal and cec.

#include "simulator/control/ControlActions.h"
#include "simulator/control/ControlValues.h"
#include "simulator/text/Join.h"
#include "simulator/text/Numbers.h"
#include "simulator/text/Tokenizer.h"
#include "wire/text/Nearest.h"

#include <utility>

namespace kelutv::simulator {

namespace {

std::int32_t sourceNamed(const Equipment& equipment, const std::string& word) {
    std::vector<wire::Enumerator> names;
    for (const std::int32_t id : equipment.sources.ids()) {
        names.push_back({equipment.sources.nameOf(id).c_str(), id});
    }
    const std::int32_t id = integerOf(word, wire::Names("the sources", names), "source");
    if (!equipment.sources.has(id)) {
        throw BadLine("there is no source " + word);
    }
    return id;
}

void plugCec(Equipment& equipment, const std::string& word, bool plugged) {
    const auto address = int32Of(word);
    if (!address || !equipment.cec.plug(*address, plugged)) {
        throw BadLine("there is no CEC device with the logical address " + word);
    }
}

void changePlug(Equipment& equipment, const std::string& rest, bool plugged) {
    const Tokens tokens = tokensOf(rest);
    if (tokens.size() == 2 && tokens[0].raw == "cec") {
        plugCec(equipment, tokens[1].raw, plugged);
    } else if (tokens.size() == 1 && int32Of(tokens[0].raw)) {
        plugCec(equipment, tokens[0].raw, plugged);
    } else if (tokens.size() == 1) {
        equipment.sources.plug(sourceNamed(equipment, tokens[0].text()), plugged);
    } else {
        throw BadLine(std::string(plugged ? "plug" : "unplug") +
                      " takes a source, or 'cec' and the logical address of a CEC device");
    }
}

const Signal& presetNamed(const Equipment& equipment, const std::string& name) {
    const std::map<std::string, Signal>& presets = equipment.configuration.signals();
    const auto found = presets.find(name);
    if (found != presets.end()) {
        return found->second;
    }
    std::vector<std::string> names{"none"};
    for (const auto& preset : presets) {
        names.push_back(preset.first);
    }
    throw BadLine('\'' + name + "' is not a signal" + wire::nearestHint(name, names) + "; allowed: " + listed(names) +
                  ", or STATE=VALUE");
}

void changeState(const Equipment& equipment, Signal& signal, const std::string& text) {
    const Assignment assignment = assignmentOf(text);
    if (!assignment.values) {
        throw BadLine("'" + text + "' is not STATE=VALUE");
    }
    const wire::StateKey& key = stateNamed(assignment.name);
    wire::Values values = valuesOf(key, *assignment.values);
    if (const auto complaint = equipment.configuration.objectionToSignal(key, values)) {
        throw BadLine(*complaint);
    }
    signal[&key] = std::move(values);
}

/** A device with the fields that most devices have. */
CecDevice deviceWith(std::int32_t address, std::int32_t port) {
    const std::string input = std::to_string(std::int64_t{port} + 1);
    return {address, port, "CEC device " + std::to_string(address), input + ".0.0.0", "", true};
}

std::int32_t numberIn(const std::string& field, const std::string& word) {
    if (const auto number = int32Of(word)) {
        return *number;
    }
    throw BadLine(field + " is a number, not '" + word + "'");
}

using Fields = std::map<std::string, std::string>;

Fields fieldsOf(const Tokens& tokens) {
    static const std::vector<std::string> names{"logAddr", "hdmiDevPort", "name", "phyAddr", "listText", "plugged"};
    Fields fields;
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        const std::string word = tokens[i].text();
        const std::size_t equals = word.find('=');
        const std::string field = word.substr(0, equals);
        if (equals == std::string::npos || std::find(names.begin(), names.end(), field) == names.end()) {
            throw BadLine("a CEC device has no field '" + field + "'" + wire::nearestHint(field, names) +
                          "; allowed: " + listed(names) + ", each with =VALUE");
        }
        if (!fields.emplace(field, word.substr(equals + 1)).second) {
            throw BadLine("the field '" + field + "' is given twice");
        }
    }
    return fields;
}

std::int32_t neededNumber(const Fields& fields, const std::string& field) {
    const auto found = fields.find(field);
    if (found == fields.end()) {
        throw BadLine("cec add needs " + field + "=NUMBER");
    }
    return numberIn(field, found->second);
}

CecDevice deviceOf(const Fields& fields) {
    CecDevice device = deviceWith(neededNumber(fields, "logAddr"), neededNumber(fields, "hdmiDevPort"));
    for (auto& [field, text] : {std::pair<const char*, std::string&>{"name", device.name},
                                {"phyAddr", device.phyAddr},
                                {"listText", device.listText}}) {
        if (const auto given = fields.find(field); given != fields.end()) {
            text = given->second;
        }
    }
    if (fields.count("listText") == 0) {
        device.listText = "HDMI" + std::to_string(std::int64_t{device.hdmiDevPort} + 1) + ' ' + device.name;
    }
    if (const auto plugged = fields.find("plugged"); plugged != fields.end()) {
        device.plugged = numberIn("plugged", plugged->second) != 0;
    }
    return device;
}

bool isSame(const CecDevice& one, const CecDevice& other) {
    return one.logAddr == other.logAddr && one.hdmiDevPort == other.hdmiDevPort && one.name == other.name &&
           one.phyAddr == other.phyAddr && one.listText == other.listText;
}

/** A device that is there already is only plugged in or unplugged, so that the lines of show can be carried out again.
 */
void addDevice(CecBus& cec, const CecDevice& device) {
    for (const CecDevice& known : cec.all()) {
        if (isSame(known, device)) {
            cec.plug(device.logAddr, device.plugged);
            return;
        }
    }
    if (const auto complaint = cec.add(device)) {
        throw BadLine(*complaint);
    }
}

} // namespace

std::string plug(Equipment& equipment, const std::string& rest) {
    changePlug(equipment, rest, true);
    return "";
}

std::string unplug(Equipment& equipment, const std::string& rest) {
    changePlug(equipment, rest, false);
    return "";
}

std::string changeSignal(Equipment& equipment, const std::string& rest) {
    const Tokens tokens = tokensOf(rest);
    if (tokens.size() < 2) {
        throw BadLine("signal takes a source, and then none, the name of a signal, or STATE=VALUE");
    }
    const std::int32_t source = sourceNamed(equipment, tokens[0].text());
    Signal signal = equipment.sources.signalAt(source);
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        if (tokens[i].raw.find('=') != std::string::npos) {
            changeState(equipment, signal, tokens[i].raw);
        } else {
            signal =
                tokens[i].raw == "none" ? equipment.configuration.noSignal() : presetNamed(equipment, tokens[i].text());
        }
    }
    equipment.sources.setSignal(source, signal);
    return "";
}

std::string changeCecDevices(Equipment& equipment, const std::string& rest) {
    const Tokens tokens = tokensOf(rest);
    const std::string what = tokens.empty() ? "" : tokens[0].raw;
    if (what == "add") {
        addDevice(equipment.cec, deviceOf(fieldsOf(tokens)));
        return "";
    }
    if (tokens.size() != 2 || (what != "remove" && what != "play")) {
        throw BadLine("cec takes add FIELD=VALUE..., remove ADDRESS or play ADDRESS");
    }
    const std::int32_t address = numberIn("the logical address", tokens[1].raw);
    if (!(what == "remove" ? equipment.cec.remove(address) : equipment.cec.select(address))) {
        throw BadLine("there is no CEC device with the logical address " + tokens[1].raw);
    }
    return "";
}

} // namespace kelutv::simulator
