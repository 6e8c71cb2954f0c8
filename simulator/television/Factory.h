#pragma once

#include "simulator/state/State.h"

#include <cstdint>
#include <string>

namespace kelutv::simulator {

/** Sets the MAC address, of which readers get the text; false, and nothing happens, unless these are six bytes. */
bool setMacAddress(State& state, const wire::Values& parts);

/** Keeps a key, which counts as burned from now on; false, and nothing happens, when there is no such kind of key. */
bool burnKey(State& state, std::int32_t kind, const wire::Values& data);

/** Burns the one-time programmable memory. @return the serial number of the set */
std::string burnOtp(State& state);

/** Brings the factory settings, those of the hotel included, back to what they start with; identity and keys stay. */
void restoreFactorySettings(State& state);

/** Brings the setting of this name back to what it starts with. */
void restoreSetting(State& state, const char* name);

} // namespace kelutv::simulator
