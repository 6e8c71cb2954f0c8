#pragma once

#include "simulator/television/Equipment.h"

#include <string>

namespace kelutv::simulator {

/**
 * @name What the verbs do.
 *
 * Each takes what follows its verb, and gives the data that were asked for. @throws BadLine, and then nothing is done
 * @{
 */
std::string plug(Equipment& equipment, const std::string& rest);
std::string unplug(Equipment& equipment, const std::string& rest);
std::string changeSignal(Equipment& equipment, const std::string& rest);
std::string changeCecDevices(Equipment& equipment, const std::string& rest);

std::string enterPowerState(Equipment& equipment, const std::string& rest);
std::string useKey(Equipment& equipment, const std::string& rest);
std::string sendEvent(Equipment& equipment, const std::string& rest);
std::string sendVbi(Equipment& equipment, const std::string& rest);

std::string set(Equipment& equipment, const std::string& rest);
std::string get(Equipment& equipment, const std::string& rest);
std::string show(Equipment& equipment, const std::string& rest);
/** @} */

} // namespace kelutv::simulator
