#pragma once

#include "simulator/state/State.h"

#include <cstdint>
#include <string>

namespace kelutv::simulator {

/** Sets the MAC address, which is read as text; false, and nothing is changed, unless these are six bytes. */
bool setMacAddress(State& state, const wire::Values& parts);

/** Keeps a key and marks it as burned; false, and nothing is changed, when there is no such kind of key. */
bool burnKey(State& state, std::int32_t kind, const wire::Values& data);

/** Burns the one-time programmable memory. @return the serial number of the set */
std::string burnOtp(State& state);

/** Restores the initial factory settings, those of the hotel included; identity and keys stay. */
void restoreFactorySettings(State& state);

/** Restores the initial value of the setting of this name. */
void restoreSetting(State& state, const char* name);

} // namespace kelutv::simulator
