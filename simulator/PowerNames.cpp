#include "PowerNames.h"

namespace simulator {

namespace {

constexpr EnumeratorName row(PowerState state, const char* name) { return {static_cast<std::int32_t>(state), name}; }

constexpr EnumeratorName kNames[] = {
    row(PowerState::On, "on"),
    row(PowerState::Suspended, "suspended"),
    row(PowerState::SuspendedToMemory, "memory"),
    row(PowerState::NormallySuspended, "normal"),
    row(PowerState::ShallowlySuspended, "shallow"),
    row(PowerState::Rebooting, "rebooting"),
};

} // namespace

EnumerationNames powerStateNames() { return kNames; }

std::string wordFor(PowerState state) { return kNames[static_cast<std::size_t>(state)].name; }

} // namespace simulator
