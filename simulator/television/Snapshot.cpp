#include "simulator/television/Snapshot.h"

#include "simulator/configuration/ConfigurationReader.h"
#include "simulator/configuration/StateSettingsReader.h"
#include "simulator/files/JsonText.h"
#include "simulator/files/JsonValues.h"
#include "simulator/television/StateAccess.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::simulator {

namespace {

constexpr char kFormat[] = "kelutv simulator state 1";

void addLine(std::string& list, const std::string& object) { list += (list.empty() ? "\n    " : ",\n    ") + object; }

std::string jsonOf(const Signal& signal) {
    std::map<std::string, std::string> members;
    for (const auto& [key, values] : signal) {
        members[key->name] = simulator::jsonOf(values);
    }
    return jsonObject(members);
}

std::string jsonOf(const State::Kept::value_type& entry) {
    std::map<std::string, std::string> members{{"state", jsonString(entry.first.first->name)},
                                               {"value", simulator::jsonOf(entry.second)}};
    if (!entry.first.second.empty()) {
        members["key"] = simulator::jsonOf(entry.first.second);
    }
    return jsonObject(members);
}

std::string settingsOf(const Equipment& equipment) {
    std::string text;
    for (const auto& entry : equipment.state.all()) {
        addLine(text, jsonOf(entry));
    }
    return text;
}

/** The sources that differ from the configuration. */
std::string sourcesOf(const Equipment& equipment) {
    std::string text;
    for (const auto& [id, source] : equipment.sources.all()) {
        const SourceSettings& first = equipment.configuration.sources().at(id);
        if (source.plugged != first.plugged || source.signal != first.signal) {
            addLine(text, jsonObject({{"source", jsonString(source.name)},
                                      {"plugged", jsonTruth(source.plugged)},
                                      {"signal", jsonOf(source.signal)}}));
        }
    }
    return text;
}

std::string devicesOf(const Equipment& equipment) {
    std::string text;
    for (const CecDevice& device : equipment.cec.all()) {
        addLine(text, simulator::jsonOf(device));
    }
    return text;
}

void readSetting(const Equipment& equipment, const JsonNode& node, State::Kept& settings) {
    node.membersOf({"state", "key", "value"});
    const wire::StateKey& key = readStateName(node.at("state"), node.at("state").text());
    const wire::Values indexes = node.has("key") ? readValues(node.at("key")) : wire::Values{};
    if (const auto refusal = objectionToIndexes(equipment, key, indexes)) {
        node.fail(refusal->text);
    }
    const wire::Values values = readValues(node.at("value"));
    if (const auto refusal = objectionToValues(equipment, key, values)) {
        node.at("value").fail(refusal->text);
    }
    if (!settings.emplace(std::make_pair(&key, indexes), values).second) {
        node.fail(std::string(key.name) + " is given twice with this key");
    }
}

Signal readSignal(const Configuration& configuration, const JsonNode& node) {
    Signal signal = configuration.noSignal();
    for (const auto& [name, member] : node.members()) {
        const wire::StateKey& key = readStateName(member, name);
        const wire::Values values = readValues(member);
        if (const auto objection = configuration.objectionToSignal(key, values)) {
            member.fail(*objection);
        }
        signal[&key] = values;
    }
    return signal;
}

void readSource(const Configuration& configuration, const JsonNode& node, Sources::All& sources) {
    node.membersOf({"source", "plugged", "signal"});
    const auto source = sources.find(readSourceName(node.at("source"), node.at("source").text()));
    if (source == sources.end()) {
        node.at("source").fail("the television has no source " + node.at("source").shown());
    }
    source->second.plugged = node.at("plugged").truth();
    source->second.signal = readSignal(configuration, node.at("signal"));
}

std::int32_t readPlaying(const JsonNode& node, const std::vector<CecDevice>& devices) {
    const std::int32_t playing = node.number();
    const bool known = playing == CecBus::kTelevision ||
                       std::any_of(devices.begin(), devices.end(), [playing](const CecDevice& device) {
                           return device.plugged && device.logAddr == playing;
                       });
    if (!known) {
        node.fail("no CEC device that is plugged in has the logical address " + std::to_string(playing));
    }
    return playing;
}

PowerState readPowerState(const JsonNode& node) {
    const std::int32_t number = node.number();
    if (number < 0 || number > static_cast<std::int32_t>(PowerState::Rebooting)) {
        node.fail("a power state goes from 0 to 5, it cannot be " + std::to_string(number));
    }
    return static_cast<PowerState>(number);
}

void checkFormat(const JsonNode& root) {
    if (!root.has("format") || !root.at("format").isText() || root.at("format").text() != kFormat) {
        root.fail(std::string("this is not the state of a simulator: its format is not '") + kFormat + "'");
    }
    root.membersOf({"format", "settings", "sources", "mainWindowShown", "cecDevices", "cecPlaying", "power"});
}

} // namespace

std::string snapshotOf(const Equipment& equipment) {
    const Power& power = equipment.power;
    const std::string powerJson = jsonObject({{"state", std::to_string(static_cast<std::int32_t>(power.state()))},
                                              {"lastPowerOffMode", std::to_string(power.lastPowerOffMode())},
                                              {"wakeupMode", std::to_string(power.wakeupMode())}});
    return std::string("{\n  \"format\": \"") + kFormat + "\",\n  \"settings\": [" + settingsOf(equipment) +
           "],\n  \"sources\": [" + sourcesOf(equipment) +
           "],\n  \"mainWindowShown\": " + jsonTruth(equipment.sources.isShown()) + ",\n  \"cecDevices\": [" +
           devicesOf(equipment) + "],\n  \"cecPlaying\": " + std::to_string(equipment.cec.playing()) +
           ",\n  \"power\": " + powerJson + "\n}\n";
}

void restoreSnapshot(Equipment& equipment, const JsonNode& root) {
    checkFormat(root);
    State::Kept settings;
    for (const JsonNode& node : root.at("settings").elements()) {
        readSetting(equipment, node, settings);
    }
    Sources::All sources = equipment.configuration.sources();
    for (const JsonNode& node : root.at("sources").elements()) {
        readSource(equipment.configuration, node, sources);
    }
    const bool shown = root.at("mainWindowShown").truth();
    std::vector<CecDevice> devices = readCecDevices(root.at("cecDevices"));
    const std::int32_t playing = readPlaying(root.at("cecPlaying"), devices);
    const JsonNode power = root.at("power");
    power.membersOf({"state", "lastPowerOffMode", "wakeupMode"});
    const PowerState powerState = readPowerState(power.at("state"));
    equipment.power.load(powerState, power.at("lastPowerOffMode").number(), power.at("wakeupMode").number());
    equipment.state.load(std::move(settings));
    equipment.sources.load(std::move(sources), shown);
    equipment.cec.load(std::move(devices), playing);
}

} // namespace kelutv::simulator
