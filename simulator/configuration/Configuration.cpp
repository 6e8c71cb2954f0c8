#include "simulator/configuration/Configuration.h"

#include "simulator/configuration/ConfigurationReader.h"
#include "simulator/configuration/DefaultConfiguration.h"
#include "simulator/files/File.h"

#include <fcntl.h>

#include <algorithm>
#include <stdexcept>

namespace kelutv::simulator {

namespace {

constexpr char kStandardName[] = "defaults.json";

std::string contentOf(const std::string& path) {
    try {
        return readRegularFile(path);
    } catch (const std::runtime_error& error) {
        throw ConfigurationError(error.what());
    }
}

} // namespace

const wire::Values& StateSettings::initialFor(const wire::Values& indexes) const {
    const auto* const first = indexes.empty() ? nullptr : std::get_if<std::int32_t>(&indexes.front());
    const auto found = first != nullptr ? initialByIndex.find(*first) : initialByIndex.end();
    return found != initialByIndex.end() ? found->second : initial;
}

Configuration Configuration::standard() { return fromText(defaultConfiguration(), kStandardName); }

Configuration Configuration::fromFile(const std::string& path) {
    JsonFile content(contentOf(path), path);
    content.layOver(JsonFile(defaultConfiguration(), kStandardName), {"sources", "signals"});
    return readConfiguration(content.root());
}

Configuration Configuration::fromText(const std::string& text, const std::string& file) {
    return readConfiguration(JsonFile(text, file).root());
}

const StateSettings& Configuration::settings(const wire::StateKey& key) const {
    static const StateSettings kPlain;
    const auto found = mParts.states.find(&key);
    return found != mParts.states.end() ? found->second : kPlain;
}

Signal Configuration::noSignal() const {
    Signal signal;
    for (const auto& [key, count] : mParts.signalStates) {
        signal[key] = wire::Values(count, std::int32_t{0});
    }
    return signal;
}

std::optional<std::string> Configuration::objectionToSignal(const wire::StateKey& key,
                                                            const wire::Values& values) const {
    const auto found = mParts.signalStates.find(&key);
    if (found == mParts.signalStates.end()) {
        return std::string(key.name) + " does not show a signal";
    }
    if (values.size() != found->second || !std::all_of(values.begin(), values.end(), [&key](const wire::Value& value) {
            return fits(key.holds, value);
        })) {
        return std::string(key.name) + " takes " + std::to_string(found->second) +
               (found->second == 1 ? " integer" : " integers");
    }
    return std::nullopt;
}

bool fits(wire::Holds holds, const wire::Value& value) {
    switch (holds) {
    case wire::Holds::Integers:
        return std::holds_alternative<std::int32_t>(value);
    case wire::Holds::Reals:
        return std::holds_alternative<double>(value);
    case wire::Holds::Texts:
        return std::holds_alternative<std::string>(value);
    case wire::Holds::Anything:
        break;
    }
    return true;
}

std::string nameOf(wire::Holds holds) {
    switch (holds) {
    case wire::Holds::Integers:
        return "integers";
    case wire::Holds::Reals:
        return "numbers";
    case wire::Holds::Texts:
        return "texts";
    case wire::Holds::Anything:
        break;
    }
    return "integers or texts";
}

} // namespace kelutv::simulator
