#include "tools/kelutv/events/EventNames.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/AllowedValues.h"
#include "wire/events/EventFile.h"
#include "wire/text/EnumeratorNames.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <cstdlib>
#include <optional>

namespace kelutv::tool {

namespace {

std::optional<std::uint32_t> numberIn(const std::string& text) {
    char* end = nullptr;
    const unsigned long number = std::strtoul(text.c_str(), &end, 0);
    const bool isNumber = !text.empty() && text.front() != '-' && *end == '\0' && number <= UINT32_MAX;
    return isNumber ? std::optional(static_cast<std::uint32_t>(number)) : std::nullopt;
}

} // namespace

wire::EventTable eventsOf(const std::string& file) {
    const char* const named = std::getenv("KELUTV_EVENTS");
    const std::string path = file.empty() && named != nullptr ? named : file;
    if (path.empty()) {
        return wire::EventTable(wire::simulatedEvents());
    }
    try {
        return wire::readEventFile(path);
    } catch (const wire::EventFileError& error) {
        throw UsageError(error.what());
    }
}

EventRange eventNamed(const wire::EventTable& events, const std::string& text) {
    if (const auto number = numberIn(text)) {
        if (wire::moduleOf(*number) == 0) {
            throw UsageError("event " + wire::shown(text) + " has no module in its upper half, as 0x60001 has");
        }
        return {*number, *number};
    }
    const wire::Event* const event = events.named(text);
    if (event == nullptr) {
        throw UsageError("no event is called " + wire::shown(text) + wire::nearestHint(text, events.names()));
    }
    return {event->first, event->last};
}

std::string moduleName(std::uint32_t module) {
    return wire::nameOfValue(static_cast<std::int32_t>(module), &wire::eventModules());
}

std::uint32_t moduleNamed(const std::string& text) {
    const auto number = numberIn(text);
    if (!number) {
        return wire::moduleOf(static_cast<std::uint32_t>(valueNamed(wire::eventModules(), text, "module")));
    }
    if (!wire::isEventModule(*number)) {
        throw UsageError("module " + wire::shown(text) +
                         " is none; a module is a multiple of 0x10000 from 0x10000 to 0x200000");
    }
    return *number;
}

std::vector<std::uint32_t> allModules() {
    std::vector<std::uint32_t> all;
    for (const wire::Enumerator& module : wire::eventModules().values) {
        const auto number = static_cast<std::uint32_t>(module.value);
        if (wire::isEventModule(number)) {
            all.push_back(number);
        }
    }
    return all;
}

} // namespace kelutv::tool
