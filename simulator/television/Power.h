#pragma once

#include "simulator/state/Revision.h"
#include "simulator/television/PublishedEvent.h"
#include "wire/Interface.h"

#include <kelutv-simulator/events.h>

#include <cstdint>
#include <string>

namespace kelutv::simulator {

/** What the television is doing; the numbers are those of the event and of the last power-off mode. */
enum class PowerState : std::int32_t {
    On = KELU_SIM_POWER_STATE_ON,
    Suspended = KELU_SIM_POWER_STATE_SUSPENDED,
    SuspendedToMemory = KELU_SIM_POWER_STATE_MEMORY,
    NormallySuspended = KELU_SIM_POWER_STATE_NORMAL,
    ShallowlySuspended = KELU_SIM_POWER_STATE_SHALLOW,
    Rebooting = KELU_SIM_POWER_STATE_REBOOTING,
};

/** What the control channel and events call the power states. */
const wire::Enumeration& powerStateNames();
std::string nameOf(PowerState state);

/** Sleeping and waking up. Not synchronised. */
class Power {
public:
    Power(PublishedEvents& events, Revision& revision) : mEvents(events), mRevision(revision) {}

    void enter(PowerState state);

    /** Enters the state, coming from where these modes say. */
    void enter(PowerState state, std::int32_t lastPowerOffMode, std::int32_t wakeupMode);

    /** Back to on, with this wakeup mode. */
    void wake(std::int32_t wakeupMode);

    PowerState state() const { return mState; }
    std::int32_t lastPowerOffMode() const { return mLastOff; }
    std::int32_t wakeupMode() const { return mWakeupMode; }

    /** Replaces everything, without events. */
    void load(PowerState state, std::int32_t lastPowerOffMode, std::int32_t wakeupMode);

private:
    PowerState mState = PowerState::On;
    std::int32_t mLastOff = 0;
    std::int32_t mWakeupMode = 0;
    PublishedEvents& mEvents;
    Revision& mRevision;
};

} // namespace kelutv::simulator
