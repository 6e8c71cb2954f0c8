#include "tools/kelutv/shell/AwaitedCompletion.h"

#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/settings/Settings.h"
#include "wire/text/Names.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

using Names = std::vector<std::string>;

Names behind(const std::string& beginning, Names names) {
    std::transform(names.begin(), names.end(), names.begin(),
                   [&beginning](const std::string& name) { return beginning + name; });
    return names;
}

/** The name before the sign of equality; empty when there is none. */
std::string comparedName(const std::string& begun) {
    const std::size_t sign = begun.find('=');
    return sign == std::string::npos ? "" : begun.substr(0, sign);
}

/** What a setting can be; `toggle` changes one only. */
Names stateNames(const Setting& setting) {
    Names names = valueNames(setting);
    names.erase(std::remove(names.begin(), names.end(), "toggle"), names.end());
    return names;
}

Names namesOfField(const wire::Event& event, const std::string& begun) {
    const std::string compared = comparedName(begun);
    Names names;
    for (const wire::EventField& field : event.fields) {
        if (compared.empty()) {
            names.push_back(field.name + std::string(1, '='));
        } else if (field.name == compared && field.names != nullptr) {
            names = behind(compared + '=', wire::namesOf(*field.names).shortNames());
        }
    }
    return names;
}

} // namespace

Names eventNames(const std::string& eventFile) {
    try {
        return eventsOf(eventFile).names();
    } catch (const UsageError&) {
        return {};
    }
}

Names awaitedNames(const std::string& eventFile, const std::string& begun) {
    const Names settings = settingNames(false);
    const std::string compared = comparedName(begun);
    if (std::find(settings.begin(), settings.end(), compared) != settings.end()) {
        return behind(compared + '=', stateNames(settingNamed(compared)));
    }
    Names names = eventNames(eventFile);
    names.insert(names.end(), settings.begin(), settings.end());
    names.emplace_back("service");
    return names;
}

Names fieldNames(const std::string& eventFile, const std::string& event, const std::string& begun) {
    try {
        const wire::EventTable events = eventsOf(eventFile);
        const wire::Event* const meant = events.find(eventNamed(events, event).first);
        return meant == nullptr ? Names() : namesOfField(*meant, begun);
    } catch (const UsageError&) {
        return {};
    }
}

} // namespace kelutv::tool
