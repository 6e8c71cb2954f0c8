// The verbs of the inputs: plug, unplug, signal and cec.

#include "simulator/control/ControlActions.h"
#include "simulator/control/ControlValues.h"
#include "simulator/text/Join.h"
#include "simulator/text/Numbers.h"
#include "simulator/text/Tokenizer.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kelutv::simulator {

namespace {

/** One that the television has; what is plugged into it changes, its sources do not. */
std::int32_t sourceNamed(const Configuration& configuration, const std::string& word) {
    std::vector<wire::Enumerator> names;
    for (const auto& [id, source] : configuration.sources()) {
        names.push_back({source.name.c_str(), id});
    }
    const std::int32_t id = integerOf(word, wire::Names("the sources", names), "source");
    if (configuration.sources().count(id) == 0) {
        throw BadLine("there is no source " + wire::shown(word));
    }
    return id;
}

std::string noDevice(const std::string& word) {
    return "there is no CEC device with the logical address " + wire::shown(word);
}

Deed changePlugOfDevice(const std::string& word, bool plugged) {
    return [word, plugged](Equipment& equipment) {
        const auto address = int32Of(word);
        if (!address || !equipment.cec.plug(*address, plugged)) {
            throw BadLine(noDevice(word));
        }
        return "";
    };
}

Deed changePlug(const Configuration& configuration, const std::string& rest, bool plugged) {
    const Tokens tokens = tokensOf(rest);
    if (tokens.size() == 2 && tokens[0].raw == "cec") {
        return changePlugOfDevice(tokens[1].raw, plugged);
    }
    if (tokens.size() != 1) {
        throw BadLine(std::string(plugged ? "plug" : "unplug") +
                      " takes a source, or 'cec' and the logical address of a CEC device");
    }
    if (int32Of(tokens[0].raw)) {
        return changePlugOfDevice(tokens[0].raw, plugged);
    }
    return [source = sourceNamed(configuration, tokens[0].text()), plugged](Equipment& equipment) {
        equipment.sources.plug(source, plugged);
        return "";
    };
}

const Signal& presetNamed(const Configuration& configuration, const std::string& name) {
    const std::map<std::string, Signal>& presets = configuration.signals();
    const auto found = presets.find(name);
    if (found != presets.end()) {
        return found->second;
    }
    std::vector<std::string> names{"none"};
    for (const auto& preset : presets) {
        names.push_back(preset.first);
    }
    throw BadLine('\'' + wire::shown(name) + "' is not a signal" + wire::nearestHint(name, names) +
                  "; allowed: " + listed(names) + ", or STATE=VALUE");
}

/** A state of the signal that the line names, and what the signal then has there. */
Signal::value_type stateIn(const Configuration& configuration, const std::string& text) {
    const Assignment assignment = assignmentOf(text);
    if (!assignment.values) {
        throw BadLine("'" + wire::shown(text) + "' is not STATE=VALUE");
    }
    const wire::StateKey& key = stateNamed(assignment.name);
    wire::Values values = valuesOf(key, *assignment.values);
    if (const auto complaint = configuration.objectionToSignal(key, values)) {
        throw BadLine(*complaint);
    }
    return {&key, std::move(values)};
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
    throw BadLine(field + " is a number, not '" + wire::shown(word) + "'");
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
            throw BadLine("a CEC device has no field '" + wire::shown(field) + "'" + wire::nearestHint(field, names) +
                          "; allowed: " + listed(names) + ", each with =VALUE");
        }
        if (!fields.emplace(field, word.substr(equals + 1)).second) {
            throw BadLine("the field '" + wire::shown(field) + "' is given twice");
        }
    }
    return fields;
}

std::int32_t neededNumber(const std::string& what, const Fields& fields, const std::string& field) {
    const auto found = fields.find(field);
    if (found == fields.end()) {
        throw BadLine("cec " + what + " needs " + field + "=NUMBER");
    }
    return numberIn(field, found->second);
}

CecDevice deviceOf(const std::string& what, const Fields& fields) {
    CecDevice device = deviceWith(neededNumber(what, fields, "logAddr"), neededNumber(what, fields, "hdmiDevPort"));
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

/** A device that is there already is only plugged in or unplugged. */
std::optional<std::string> addDevice(CecBus& cec, const CecDevice& device) {
    const auto& all = cec.all();
    const bool isKnown =
        std::any_of(all.begin(), all.end(), [&device](const CecDevice& known) { return isSameDevice(known, device); });
    return isKnown ? cec.put(device) : cec.add(device);
}

Deed bringDevice(const CecDevice& device, bool isReplacing) {
    return [device, isReplacing](Equipment& equipment) {
        if (const auto complaint = isReplacing ? equipment.cec.put(device) : addDevice(equipment.cec, device)) {
            throw BadLine(*complaint);
        }
        return "";
    };
}

Deed keepDevices(const Tokens& tokens) {
    std::vector<std::int32_t> addresses;
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        addresses.push_back(numberIn("the logical address", tokens[i].raw));
    }
    return [addresses](Equipment& equipment) {
        if (!equipment.cec.keep(addresses)) {
            throw BadLine("cec keep takes the logical addresses of CEC devices that are there, each once");
        }
        return "";
    };
}

} // namespace

Deed plug(const Configuration& configuration, const std::string& rest) { return changePlug(configuration, rest, true); }

Deed unplug(const Configuration& configuration, const std::string& rest) {
    return changePlug(configuration, rest, false);
}

Deed changeSignal(const Configuration& configuration, const std::string& rest) {
    const Tokens tokens = tokensOf(rest);
    if (tokens.size() < 2) {
        throw BadLine("signal takes a source, and then none, the name of a signal, or STATE=VALUE");
    }
    const std::int32_t source = sourceNamed(configuration, tokens[0].text());
    std::optional<Signal> replaced;
    Signal changed;
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        if (tokens[i].raw.find('=') != std::string::npos) {
            const auto [key, values] = stateIn(configuration, tokens[i].raw);
            changed[key] = values;
        } else {
            replaced =
                tokens[i].raw == "none" ? configuration.noSignal() : presetNamed(configuration, tokens[i].text());
            changed.clear();
        }
    }
    return [source, replaced, changed](Equipment& equipment) {
        Signal signal = replaced.value_or(equipment.sources.signalAt(source));
        for (const auto& [key, values] : changed) {
            signal[key] = values;
        }
        equipment.sources.setSignal(source, signal);
        return "";
    };
}

Deed listSignals(const Configuration& configuration, const std::string& rest) {
    if (!rest.empty()) {
        throw BadLine("signals takes no arguments");
    }
    std::vector<std::string> names;
    for (const auto& preset : configuration.signals()) {
        names.push_back(preset.first);
    }
    return [text = joinedLines(names)](Equipment&) { return text; };
}

Deed changeCecDevices(const Configuration&, const std::string& rest) {
    const Tokens tokens = tokensOf(rest);
    const std::string what = tokens.empty() ? "" : tokens[0].raw;
    if (what == "add" || what == "put") {
        return bringDevice(deviceOf(what, fieldsOf(tokens)), what == "put");
    }
    if (what == "keep") {
        return keepDevices(tokens);
    }
    if (tokens.size() != 2 || (what != "remove" && what != "play")) {
        throw BadLine("cec takes add or put FIELD=VALUE..., remove ADDRESS, keep ADDRESS... or play ADDRESS");
    }
    const std::int32_t address = numberIn("the logical address", tokens[1].raw);
    return [address, isRemoval = what == "remove", word = tokens[1].raw](Equipment& equipment) {
        if (!(isRemoval ? equipment.cec.remove(address) : equipment.cec.select(address))) {
            throw BadLine(noDevice(word));
        }
        return "";
    };
}

} // namespace kelutv::simulator
