#pragma once

#include "tools/kelutv/output/Json.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::tool {

/** One of the television's inputs. */
struct Input {
    /** Of KELU_TV_SRC_E. */
    std::int32_t source;
    /** Whether the television lists it among those that can be chosen now. */
    bool isPlugged;
    bool hasSignal;
    /** The windows that show it, of KELU_TV_WINDOW_E. */
    std::vector<std::int32_t> windows;
};

/** In the television's order. @throws LinkError, ServiceError, as do those below */
std::vector<Input> readInputs();

/** A device on the bus of HDMI-CEC, with the texts as the service words them. */
struct CecDevice {
    std::int32_t address;
    /** Counted from 0. */
    std::int32_t port;
    std::string physicalAddress;
    std::string name;
    std::string listText;
    bool isPlaying;
};

/** In the television's order. */
std::vector<CecDevice> readCecDevices();

/** The audio return channel. */
struct Arc {
    bool isSupported;
    bool isActive;
    /** Counted from 0. */
    std::int32_t port;
};

Arc readArc();

/** `hdmi2`; the number of a source that has no name. */
std::string sourceName(std::int32_t source);

/** The HDMI input with this port. */
std::int32_t sourceOfPort(std::int32_t port);

/** `plugged, signal, main`. */
std::string textOf(const Input& input);

/** `hdmi1, 1.0.0.0, Player, playing`. */
std::string textOf(const CecDevice& device);

/** `{"source": ..., "plugged": ..., "signal": ..., "windows": [...]}`. */
Json documentOf(const Input& input);

/** `{"address": ..., "port": ..., "source": ..., "physicalAddress": ..., "name": ..., "text": ..., "playing": ...}`. */
Json documentOf(const CecDevice& device);

/** `{"supported": ..., "active": ..., "port": ..., "source": ...}`. */
Json documentOf(const Arc& arc);

} // namespace kelutv::tool
