#pragma once

#include "tools/kelutv/events/EventQueue.h"
#include "tools/kelutv/output/Output.h"
#include "wire/events/EventTable.h"
#include "wire/events/Payload.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** An event with what the television's table says of it; both must live as long. */
struct KnownEvent {
    KnownEvent(const ReceivedEvent& what, const wire::EventTable& events);

    const ReceivedEvent& received;
    /** Null when the table does not have it. */
    const wire::Event* known;
    /** Empty for one that the event manager does not have. */
    std::string module;
    std::vector<wire::PayloadValue> fields;
};

/** Prints it as a line or as a document. */
void print(const KnownEvent& event, const Output& output);

/** `0x60001 volumeChanged (8 bytes): channel=0 ..., volume=35`, without its bytes. */
std::string meaningText(const KnownEvent& event);

/** What it means: `{"name": ..., "module": ..., "fields": [...]}`, with `words` for an event that is not known. */
Json meaningDocument(const KnownEvent& event);

/** A time as documents have it, in seconds since 1970. */
double documentTime(std::chrono::system_clock::time_point time);

} // namespace kelutv::tool
