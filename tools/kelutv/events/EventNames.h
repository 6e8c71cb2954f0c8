#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** One event and the int words of its payload, as the simulated television publishes it. */
struct EventName {
    std::string name;
    /** Fewer than the payload has when the others have no names. */
    std::vector<const char*> words;
};

/** Nothing when the event has no name. */
std::optional<EventName> eventNamed(std::uint32_t id);

/** The event of this number or name, whatever the name's case. @throws UsageError when there is none */
std::uint32_t eventOf(const std::string& text);

constexpr std::uint32_t moduleOf(std::uint32_t event) { return event & 0xFFFF0000; }

/** `KELU_EM_MODE_VOLUME`; empty for a number that is no module. */
std::string moduleName(std::uint32_t module);

/** The module of this number, name or short name. @throws UsageError when there is none */
std::uint32_t moduleOf(const std::string& text);

/** Every module of the event manager. */
std::vector<std::uint32_t> allModules();

} // namespace kelutv::tool
