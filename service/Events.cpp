#include "kelutv-service/Events.h"

#include "service/EventPayload.h"
#include "wire/events/EventTable.h"
#include "wire/text/Shown.h"

#include <stdexcept>

namespace kelutv::service {

void Events::publish(const std::string& name, const Values& values) {
    const wire::Event* const event = wire::EventTable(wire::simulatedEvents()).named(name);
    if (event == nullptr) {
        throw std::invalid_argument("there is no event " + wire::shown(name));
    }
    send(event->first, payloadOf(*event, values));
}

} // namespace kelutv::service
