#include "simulator/configuration/ConfigurationReader.h"

#include "simulator/configuration/StateSettingsReader.h"
#include "wire/text/Names.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <kelutv/video_types.h>

#include <algorithm>
#include <set>

namespace kelutv::simulator {

namespace {

constexpr char kCurrentSource[] = "sourcemanager.curSource";

/** The states of a module, without the name of the module. */
std::vector<std::string> statesOf(const std::string& module) {
    std::vector<std::string> names;
    for (const wire::StateKey& key : wire::allStates()) {
        if (key.module == module) {
            names.emplace_back(key.name + module.size() + 1);
        }
    }
    return names;
}

const wire::StateKey& stateIn(const std::string& module, const std::string& name, const JsonNode& place) {
    const wire::StateKey* const key = wire::findState(module + '.' + name);
    if (key == nullptr) {
        place.fail("there is no state '" + wire::shown(name) + "' in " + module +
                   wire::nearestHint(name, statesOf(module)));
    }
    return *key;
}

std::vector<std::string> modules() {
    std::set<std::string> names;
    for (const wire::StateKey& key : wire::allStates()) {
        names.insert(key.module);
    }
    return {names.begin(), names.end()};
}

/** Reads the parts of a configuration one after the other; each uses those before. */
class Reader {
public:
    explicit Reader(const JsonNode& root) : mRoot(root) {}

    Configuration::Parts read() {
        readSettings();
        readSignals();
        readSources();
        readCec();
        showFirstSignal();
        checkSources();
        return std::move(mParts);
    }

private:
    void readSettings() {
        std::vector<std::string> allowed = modules();
        allowed.insert(allowed.end(), {"$schema", "cec", "signals", "sources"});
        for (const auto& [module, states] : mRoot.membersOf(allowed)) {
            if (module == "$schema") {
                states.text();
            } else if (module != "cec" && module != "signals" && module != "sources") {
                readModule(module, states);
            }
        }
    }

    void readModule(const std::string& module, const JsonNode& states) {
        for (const auto& [name, node] : states.members()) {
            const wire::StateKey& key = stateIn(module, name, node);
            mParts.states[&key] = readStateSettings(node, key);
        }
    }

    /** The values that a signal or a source has for states; its other members are skipped. */
    Signal statesIn(const JsonNode& node, const std::vector<std::string>& others) {
        Signal signal;
        for (const auto& [name, values] : node.members()) {
            if (std::find(others.begin(), others.end(), name) == others.end()) {
                const wire::StateKey& key = signalState(values, name);
                signal[&key] = readValues(values, key);
                checkLength(values, key, signal[&key].size());
            }
        }
        return signal;
    }

    static const wire::StateKey& signalState(const JsonNode& node, const std::string& name) {
        const wire::StateKey& key = readStateName(node, name);
        if (key.holds != wire::Holds::Integers || key.indexes.size() != 0) {
            node.fail(name + " cannot show a signal: it is not made of integers, or is kept for each of several keys");
        }
        return key;
    }

    void checkLength(const JsonNode& node, const wire::StateKey& key, std::size_t length) {
        const std::size_t expected = mParts.signalStates.emplace(&key, length).first->second;
        if (length != expected) {
            node.fail(std::string(key.name) + " has " + std::to_string(length) + " values here and " +
                      std::to_string(expected) + " in another signal");
        }
    }

    void readSignals() {
        if (mRoot.has("signals")) {
            for (const auto& [name, node] : mRoot.at("signals").members()) {
                mParts.signals[name] = statesIn(node, {});
            }
        }
    }

    void readSources() {
        if (mRoot.has("sources")) {
            for (const auto& [name, node] : mRoot.at("sources").members()) {
                readSource(name, node);
            }
        }
        complete();
    }

    void readSource(const std::string& name, const JsonNode& node) {
        const auto added = mParts.sources.emplace(readSourceName(node, name), SourceSettings{name, true, {}});
        if (!added.second) {
            node.fail(name + " and " + added.first->second.name + " are the same source");
        }
        SourceSettings& source = added.first->second;
        source.signal = statesIn(node, {"plugged", "signal"});
        if (node.has("plugged")) {
            source.plugged = node.at("plugged").truth();
        }
        if (node.has("signal")) {
            const Signal& preset = presetNamed(node.at("signal"));
            source.signal.insert(preset.begin(), preset.end());
        }
    }

    const Signal& presetNamed(const JsonNode& node) const {
        const auto found = mParts.signals.find(node.text());
        if (found == mParts.signals.end()) {
            std::vector<std::string> names;
            for (const auto& signal : mParts.signals) {
                names.push_back(signal.first);
            }
            node.fail("there is no signal " + node.shown() + " in /signals" + wire::nearestHint(node.text(), names));
        }
        return found->second;
    }

    /** States that a signal does not name are zero. */
    void complete() {
        const Signal nothing = Configuration(mParts).noSignal();
        for (auto& signal : mParts.signals) {
            signal.second.insert(nothing.begin(), nothing.end());
        }
        for (auto& source : mParts.sources) {
            source.second.signal.insert(nothing.begin(), nothing.end());
        }
    }

    void readCec() {
        if (!mRoot.has("cec")) {
            return;
        }
        const JsonNode cec = mRoot.at("cec");
        cec.membersOf({"arcPort", "devices"});
        mParts.arcPort = cec.at("arcPort").number();
        if (mParts.arcPort < 0) {
            cec.at("arcPort").fail("this is the number of a port, it cannot be " + std::to_string(mParts.arcPort));
        }
        mParts.cecDevices = readCecDevices(cec.at("devices"));
    }

    /** The states that show a signal start with that of the source that is current at first. */
    void showFirstSignal() {
        const Configuration nothingShown(mParts);
        Signal first = nothingShown.noSignal();
        if (const wire::StateKey* const current = wire::findState(kCurrentSource)) {
            const wire::Values shown = nothingShown.settings(*current).initialFor({std::int32_t{KELU_TV_WINDOW_MAIN}});
            const auto found =
                shown.empty() ? mParts.sources.end() : mParts.sources.find(std::get<std::int32_t>(shown.front()));
            if (found != mParts.sources.end() && found->second.plugged) {
                first = found->second.signal;
            }
        }
        for (const auto& [key, values] : first) {
            mParts.states[key].initial = values;
            mParts.states[key].ofSignal = true;
        }
    }

    void checkSources() const {
        for (const auto& [key, settings] : mParts.states) {
            if (!settings.valueIsSource) {
                continue;
            }
            checkSource(*key, settings.initial);
            for (const auto& keyed : settings.initialByIndex) {
                checkSource(*key, keyed.second);
            }
        }
    }

    void checkSource(const wire::StateKey& key, const wire::Values& values) const {
        if (!values.empty() && mParts.sources.count(std::get<std::int32_t>(values.front())) == 0) {
            const std::string module = key.module;
            const JsonNode place = mRoot.at(module).at(key.name + module.size() + 1).at("initial");
            place.fail(place.shown() + " is not a source of the television");
        }
    }

    const JsonNode& mRoot;
    Configuration::Parts mParts;
};

} // namespace

Configuration readConfiguration(const JsonNode& root) { return Configuration(Reader(root).read()); }

std::int32_t readSourceName(const JsonNode& place, const std::string& name) {
    try {
        return wire::namesOf(*wire::findEnumeration("KELU_TV_SRC_E")).valueOf(name);
    } catch (const wire::UnknownName& error) {
        place.fail(error.what());
    }
}

} // namespace kelutv::simulator
