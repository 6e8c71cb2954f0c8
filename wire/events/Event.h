#pragma once

#include "wire/Interface.h"

#include <cstdint>

namespace kelutv::wire {

/** How a field stands in a payload; a text or bytes are the last one. */
enum class FieldType { Int8, UInt8, Int16, UInt16, Int32, Text, Bytes };

struct EventField {
    const char* name;
    FieldType type;
    /** Null for a field whose numbers have no names. */
    const Enumeration* names;
};

/** What a television publishes under the identifiers from `first` to `last`, with the fields of its payload. */
struct Event {
    std::uint32_t first;
    std::uint32_t last;
    const char* name;
    Rows<EventField> fields;
    /** One sentence. */
    const char* when;
};

/** Generated from the catalogue: the events of the simulated television. */
Rows<Event> simulatedEvents();

/** The module of an event. */
constexpr std::uint32_t moduleOf(std::uint32_t event) { return event & 0xFFFF0000; }

} // namespace kelutv::wire
