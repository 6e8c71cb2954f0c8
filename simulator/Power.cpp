#include "Power.h"

#include "Events.h"

#include <string>

namespace simulator {

void Power::enter(PowerState state) {
    if (mState == state) {
        return;
    }
    mState = state;
    const auto number = static_cast<std::int32_t>(state);
    if (state != PowerState::On) {
        mLastOff = number;
    }
    mNotices.push_back({kPowerStateChanged, payloadOf({number}), "power state = " + std::to_string(number)});
}

void Power::wake(std::int32_t wakeupMode) {
    mWakeupMode = wakeupMode;
    enter(PowerState::On);
}

} // namespace simulator
