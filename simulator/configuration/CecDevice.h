#pragma once

#include "simulator/files/JsonNode.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** A device that can be plugged into an HDMI input. */
struct CecDevice {
    std::int32_t logAddr;
    std::int32_t hdmiDevPort;
    std::string name;
    /** As in `1.0.0.0`. */
    std::string phyAddr;
    std::string listText;
    bool plugged;
};

/** Whether they differ in nothing but the plug. */
bool isSameDevice(const CecDevice& one, const CecDevice& other);

/** What is wrong with a device, if anything. */
std::optional<std::string> objectionTo(const CecDevice& device);

/** A list of devices. @throws ConfigurationError for a wrong device, and when two have one address */
std::vector<CecDevice> readCecDevices(const JsonNode& node);

std::string jsonOf(const CecDevice& device);

} // namespace kelutv::simulator
