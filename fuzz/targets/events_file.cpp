#include "fuzz/support/Input.h"
#include "fuzz/support/Target.h"

#include "wire/events/EventFile.h"
#include "wire/events/Payload.h"
#include "wire/text/PipeTables.h"

#include <string>

/** Tables of events: each is refused with its line, or has events by which any payload can be read. */
namespace kelutv::fuzz {
namespace {

void run(const std::string& text) {
    const wire::EventTable events = wire::readEvents(text);
    const Bytes payload(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(text.size() / 2));
    for (const std::string& name : events.names()) {
        const wire::Event* const event = events.named(name);
        require(event != nullptr && events.find(event->first) == event && events.find(event->last) == event,
                "an event is found by its name and its identifiers");
        wire::readPayload(event, payload);
    }
    wire::readPayload(nullptr, payload);
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        kelutv::fuzz::run({data, data + size});
    } catch (const kelutv::wire::LineError& error) {
        kelutv::fuzz::require(error.line() >= 1, "a refusal names a line");
    }
    return 0;
}
