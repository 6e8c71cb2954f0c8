#pragma once

#include "simulator/configuration/CecDevice.h"
#include "wire/Interface.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** The values that a signal gives to each of the states that show it. */
using Signal = std::map<const wire::StateKey*, wire::Values>;

/** Includes both ends. */
struct Range {
    std::int32_t low;
    std::int32_t high;
};

/** How a television of this configuration treats one of its states. */
struct StateSettings {
    wire::Values initial;
    /** By the first index; takes precedence over `initial`. */
    std::map<std::int32_t, wire::Values> initialByIndex;
    std::optional<Range> range;
    /** Published when the value changes; 0 for none. */
    unsigned int event = 0;
    /** Shows the signal of the main window's source. */
    bool ofSignal = false;
    bool indexIsSource = false;
    bool valueIsSource = false;

    const wire::Values& initialFor(const wire::Values& indexes) const;
};

/** An input of the television and its signal. */
struct SourceSettings {
    /** Its enumerator, as the configuration names it. */
    std::string name;
    bool plugged;
    Signal signal;
};

/** What a television starts with and can do. */
class Configuration {
public:
    struct Parts {
        std::map<const wire::StateKey*, StateSettings> states;
        /** The states that show a signal, each with its number of values. */
        std::map<const wire::StateKey*, std::size_t> signalStates;
        std::map<std::string, Signal> signals;
        std::map<std::int32_t, SourceSettings> sources;
        std::vector<CecDevice> cecDevices;
        std::int32_t arcPort = 0;
    };

    explicit Configuration(Parts parts) : mParts(std::move(parts)) {}

    /** The one that comes with the program. */
    static Configuration standard();

    /** The standard one overlaid with a file. @throws ConfigurationError */
    static Configuration fromFile(const std::string& path);

    /** From JSON text alone; errors name `file`. @throws ConfigurationError */
    static Configuration fromText(const std::string& text, const std::string& file);

    const StateSettings& settings(const wire::StateKey& key) const;

    /** By their identifiers. */
    const std::map<std::int32_t, SourceSettings>& sources() const { return mParts.sources; }

    /** The signals that have a name; every state that shows a signal is in each of them. */
    const std::map<std::string, Signal>& signals() const { return mParts.signals; }

    /** Every state that shows a signal, with zeros. */
    Signal noSignal() const;

    /** Why a signal cannot have these values for the state; none if it can. */
    std::optional<std::string> objectionToSignal(const wire::StateKey& key, const wire::Values& values) const;

    const std::vector<CecDevice>& cecDevices() const { return mParts.cecDevices; }

    /** The HDMI input with the audio return channel. */
    std::int32_t arcPort() const { return mParts.arcPort; }

private:
    Parts mParts;
};

/** Whether a value, or an index, is of this kind. */
bool fits(wire::Holds holds, const wire::Value& value);

/** The plural for messages: `integers`. */
std::string nameOf(wire::Holds holds);

} // namespace kelutv::simulator
