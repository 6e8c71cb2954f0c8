#include "simulator/television/PowerNames.h"

namespace kelutv::simulator {

namespace {

constexpr wire::Enumerator row(PowerState state, const char* name) { return {name, static_cast<std::int32_t>(state)}; }

constexpr wire::Enumerator kNames[] = {
    row(PowerState::On, "on"),
    row(PowerState::Suspended, "suspended"),
    row(PowerState::SuspendedToMemory, "memory"),
    row(PowerState::NormallySuspended, "normal"),
    row(PowerState::ShallowlySuspended, "shallow"),
    row(PowerState::Rebooting, "rebooting"),
};

} // namespace

wire::Enumeration powerStateNames() { return {"PowerState", kNames}; }

std::string wordFor(PowerState state) { return kNames[static_cast<std::size_t>(state)].name; }

} // namespace kelutv::simulator
