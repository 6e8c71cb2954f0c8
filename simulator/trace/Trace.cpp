#include "simulator/trace/Trace.h"

#include "wire/events/EventTable.h"

#include <cstdio>

namespace kelutv::simulator {

namespace {

std::string describe(pid_t caller, const wire::Request& request) {
    return '[' + std::to_string(caller) + "] " + describe(request);
}

} // namespace

std::string describe(const Change& change) {
    const std::string indexes = wire::joined(change.indexes, wire::Encoding::Int32, nullptr);
    return change.key->name + (indexes.empty() ? "" : '[' + indexes + ']') + " = " +
           wire::joined(change.values, wire::Encoding::Int32, nullptr);
}

std::string describe(pid_t caller, const wire::Request& request, const wire::Reply& reply) {
    return describe(caller, request) + " -> " + describe(request, reply);
}

std::string describe(const PublishedEvent& event) {
    char identifier[32];
    std::snprintf(identifier, sizeof(identifier), "event 0x%X", event.identifier);
    const wire::EventTable events(wire::simulatedEvents());
    const wire::Event* const known = events.find(event.identifier);
    return identifier + (known != nullptr ? std::string(" ") + known->name : "") + ": " + event.text;
}

std::string describe(pid_t caller, const wire::Request& request, const FaultRule& fault) {
    return describe(caller, request) + " meets fault " + fault.line;
}

} // namespace kelutv::simulator
