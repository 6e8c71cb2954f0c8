#include "simulator/television/Power.h"

#include "wire/events/EventTable.h"
#include "wire/events/Payload.h"
#include "wire/text/Names.h"

#include <kelutv-simulator/events.h>

namespace kelutv::simulator {

void Power::enter(PowerState state) {
    if (mState == state) {
        return;
    }
    mState = state;
    mRevision.advance();
    const auto number = static_cast<std::int32_t>(state);
    if (state != PowerState::On) {
        mLastOff = number;
    }
    mEvents.push_back(
        {KELU_SIM_EVENT_POWER_STATE_CHANGED, wire::payloadOf({number}), "power state = " + std::to_string(number)});
}

void Power::enter(PowerState state, std::int32_t lastPowerOffMode, std::int32_t wakeupMode) {
    enter(state);
    if (mLastOff != lastPowerOffMode || mWakeupMode != wakeupMode) {
        mLastOff = lastPowerOffMode;
        mWakeupMode = wakeupMode;
        mRevision.advance();
    }
}

void Power::wake(std::int32_t wakeupMode) { enter(PowerState::On, mLastOff, wakeupMode); }

void Power::load(PowerState state, std::int32_t lastPowerOffMode, std::int32_t wakeupMode) {
    mState = state;
    mLastOff = lastPowerOffMode;
    mWakeupMode = wakeupMode;
}

const wire::Enumeration& powerStateNames() {
    const wire::EventTable events(wire::simulatedEvents());
    return *events.find(KELU_SIM_EVENT_POWER_STATE_CHANGED)->fields[0].names;
}

std::string nameOf(PowerState state) {
    return wire::namesOf(powerStateNames()).shortNameOf(static_cast<std::int32_t>(state));
}

} // namespace kelutv::simulator
