#pragma once

#include "wire/events/EventTable.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * The events that the television is said to have: those of the file, else of the file that KELUTV_EVENTS names, else
 * those of the simulated television.
 * @throws UsageError when the file cannot be read or is wrong
 */
wire::EventTable eventsOf(const std::string& file);

/** Identifiers in a row, both ends included. */
struct EventRange {
    std::uint32_t first;
    std::uint32_t last;
};

/** The identifiers of the event of this number or name, whatever the name's case. @throws UsageError when there is none
 */
EventRange eventNamed(const wire::EventTable& events, const std::string& text);

/** `KELU_EM_MODE_VOLUME`; empty for a number that is not a module. */
std::string moduleName(std::uint32_t module);

/** The module of this number, name or short name. @throws UsageError when there is none */
std::uint32_t moduleNamed(const std::string& text);

/** Every module of the event manager. */
std::vector<std::uint32_t> allModules();

} // namespace kelutv::tool
