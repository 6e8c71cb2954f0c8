#pragma once

#include "Notice.h"
#include "Table.h"

#include <set>
#include <vector>

namespace simulator {

/** A device that can be plugged into an HDMI input. */
struct CecDevice {
    std::int32_t logAddr;
    std::int32_t hdmiDevPort;
    const char* name;
    const char* phyAddr;
    const char* listText;
    bool plugged;
};

/** Generated from defaults.json: the devices, and the input with the audio return channel. */
Rows<CecDevice> allCecDevices();
std::int32_t cecArcPort();

/** The HDMI inputs and what is plugged into them. Not synchronised. */
class CecBus {
public:
    /** The logical address of the television itself, which plays when no device does. */
    static constexpr std::int32_t kTelevision = 0;

    explicit CecBus(Notices& notices);

    /** The devices plugged in, in the order of the configuration. */
    std::vector<const CecDevice*> devices() const;

    std::int32_t playing() const { return mPlaying; }

    /** Whether an audio system hangs on the input with the audio return channel. */
    bool isArcActive() const;

    /** Lets a device plugged in, or the television, play; false when there is none of the address. */
    bool select(std::int32_t logAddr);

    /** Plugs a device of the configuration in, or unplugs it; false when there is none of the address. */
    bool plug(std::int32_t logAddr, bool plugged);

private:
    void play(std::int32_t logAddr);

    std::set<std::int32_t> mPlugged;
    std::int32_t mPlaying = kTelevision;
    Notices& mNotices;
};

} // namespace simulator
