#include "tools/kelutv/events/EventNames.h"

#include "tools/kelutv/Function.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/Nearest.h"
#include "wire/Events.h"

#include <strings.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>

namespace kelutv::tool {

namespace {

/** `volumeChanged` for `kVolumeChanged`. */
std::string nameOf(const wire::EventName& event) {
    std::string name = event.name + 1;
    name.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(name.front())));
    return name;
}

const Enumeration& modules() {
    const Rows<Enumeration> enumerations = allEnumerations();
    return *std::find_if(enumerations.begin(), enumerations.end(),
                         [](const Enumeration& row) { return std::strcmp(row.name, "KELU_EM_MODE_E") == 0; });
}

std::optional<std::uint32_t> numberIn(const std::string& text) {
    char* end = nullptr;
    const unsigned long number = std::strtoul(text.c_str(), &end, 0);
    const bool isNumber = !text.empty() && text.front() != '-' && *end == '\0' && number <= UINT32_MAX;
    return isNumber ? std::optional(static_cast<std::uint32_t>(number)) : std::nullopt;
}

} // namespace

std::optional<EventName> eventNamed(std::uint32_t id) {
    for (const wire::EventName& event : wire::allEvents()) {
        if (event.event == id) {
            return EventName{nameOf(event), {event.words.begin(), event.words.end()}};
        }
    }
    return std::nullopt;
}

std::uint32_t eventOf(const std::string& text) {
    if (const auto number = numberIn(text)) {
        if (moduleOf(*number) == 0) {
            throw UsageError("event " + text + " has no module in its upper half, as 0x60001 has");
        }
        return *number;
    }
    std::vector<std::string> names;
    for (const wire::EventName& event : wire::allEvents()) {
        names.push_back(nameOf(event));
        if (::strcasecmp(text.c_str(), names.back().c_str()) == 0) {
            return event.event;
        }
    }
    throw UsageError("no event is called " + text + nearestHint(text, names));
}

std::string moduleName(std::uint32_t module) {
    const Enumerator* const found = enumeratorOf(modules(), static_cast<std::int32_t>(module));
    return found != nullptr ? found->name : "";
}

std::uint32_t moduleOf(const std::string& text) {
    const auto number = numberIn(text);
    if (!number) {
        return moduleOf(static_cast<std::uint32_t>(enumeratorNamed(modules(), text).value));
    }
    if (moduleOf(*number) != *number || moduleName(*number).empty()) {
        throw UsageError("module " + text + " is none; a module is a multiple of 0x10000 from 0x10000 to 0x200000");
    }
    return *number;
}

std::vector<std::uint32_t> allModules() {
    std::vector<std::uint32_t> all;
    for (const Enumerator& module : modules().values) {
        const auto number = static_cast<std::uint32_t>(module.value);
        if (moduleOf(number) == number) {
            all.push_back(number);
        }
    }
    return all;
}

} // namespace kelutv::tool
