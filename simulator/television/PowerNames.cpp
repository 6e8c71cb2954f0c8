#include "simulator/television/PowerNames.h"

#include "wire/events/EventTable.h"
#include "wire/text/Names.h"

#include <kelutv-simulator/events.h>

namespace kelutv::simulator {

const wire::Enumeration& powerStateNames() {
    const wire::EventTable events(wire::simulatedEvents());
    return *events.find(KELU_SIM_EVENT_POWER_STATE_CHANGED)->fields[0].names;
}

std::string wordFor(PowerState state) {
    return wire::namesOf(powerStateNames()).shortNameOf(static_cast<std::int32_t>(state));
}

} // namespace kelutv::simulator
