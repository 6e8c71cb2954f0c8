#include "simulator/television/Power.h"

#include "wire/events/Payload.h"

#include <kelutv-simulator/events.h>

#include <string>

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
    mNotices.push_back(
        {KELU_SIM_EVENT_POWER_STATE_CHANGED, wire::payloadOf({number}), "power state = " + std::to_string(number)});
}

void Power::wake(std::int32_t wakeupMode) {
    if (mWakeupMode != wakeupMode) {
        mWakeupMode = wakeupMode;
        mRevision.advance();
    }
    enter(PowerState::On);
}

void Power::takeOver(PowerState state, std::int32_t lastPowerOffMode, std::int32_t wakeupMode) {
    mState = state;
    mLastOff = lastPowerOffMode;
    mWakeupMode = wakeupMode;
}

} // namespace kelutv::simulator
