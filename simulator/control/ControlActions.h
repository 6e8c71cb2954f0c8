#pragma once

#include "simulator/control/Control.h"

#include <string>

namespace kelutv::simulator {

/**
 * @name What the verbs do.
 *
 * Each reads what follows its verb, and gives what then does it. @throws BadLine
 * @{
 */
Deed plug(const Configuration& configuration, const std::string& rest);
Deed unplug(const Configuration& configuration, const std::string& rest);
Deed changeSignal(const Configuration& configuration, const std::string& rest);
Deed listSignals(const Configuration& configuration, const std::string& rest);
Deed changeCecDevices(const Configuration& configuration, const std::string& rest);

Deed enterPowerState(const Configuration& configuration, const std::string& rest);
Deed useKey(const Configuration& configuration, const std::string& rest);
Deed sendEvent(const Configuration& configuration, const std::string& rest);
Deed sendVbi(const Configuration& configuration, const std::string& rest);

Deed set(const Configuration& configuration, const std::string& rest);
Deed get(const Configuration& configuration, const std::string& rest);
Deed reset(const Configuration& configuration, const std::string& rest);
Deed show(const Configuration& configuration, const std::string& rest);
/** @} */

} // namespace kelutv::simulator
