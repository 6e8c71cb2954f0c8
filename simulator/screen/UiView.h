#pragma once

#include "simulator/television/Equipment.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** A colour that fills the screen. */
struct UiColor {
    std::int32_t red;
    std::int32_t green;
    std::int32_t blue;
};

/** An input of the television. */
struct UiInput {
    std::int32_t id;
    /** As the configuration has it, and as it is shown. */
    std::string fullName;
    std::string name;
    bool isPlugged;
    bool hasSignal;
    /** Of the main window. */
    bool isCurrent;
};

/** What the screen of the simulator shows, as texts and numbers. */
struct UiView {
    std::string power;
    bool isOn = true;
    std::string source;
    std::string signal;
    std::string streamType;
    std::string pictureMode;
    std::int32_t volume = 0;
    bool muted = false;
    /** The test pattern while one is shown. */
    std::optional<UiColor> pattern;
    std::string hotel;
    std::vector<UiInput> inputs;
    /** The CEC devices, in words. */
    std::vector<std::string> devices;
    std::vector<std::string> faults;
    /** What the latest requests and events were, the latest last. */
    std::vector<std::string> commands;
    std::vector<std::string> events;
    /** Whether the keyboard can be read, and whether it is explained in place of all else. */
    bool hasKeys = false;
    bool showsKeys = false;
};

/** The present state of the television; commands and events are left out. */
UiView viewOf(const Equipment& equipment);

} // namespace kelutv::simulator
