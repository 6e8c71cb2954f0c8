#pragma once

#include "simulator/configuration/Configuration.h"
#include "simulator/state/Revision.h"
#include "simulator/television/PublishedEvent.h"

#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** The HDMI inputs and the CEC devices that can be plugged into them. Not synchronised. */
class CecBus {
public:
    /** The logical address of the television itself, which plays when no device does. */
    static constexpr std::int32_t kTelevision = 0;

    CecBus(const Configuration& configuration, PublishedEvents& events, Revision& revision);

    /** Plugged in or not, in the order in which they came. */
    const std::vector<CecDevice>& all() const { return mDevices; }

    /** The devices plugged in, in the same order. */
    std::vector<CecDevice> devices() const;

    std::int32_t playing() const { return mPlaying; }

    std::int32_t arcPort() const { return mArcPort; }

    /** Whether an audio system is plugged into the input with the audio return channel. */
    bool isArcActive() const;

    /** Selects the device that plays, or the television; false when no plugged device has the address. */
    bool select(std::int32_t logAddr);

    /** Plugs a device in, or unplugs it; false when there is none of the address. */
    bool plug(std::int32_t logAddr, bool plugged);

    /** Adds a device. @return what is wrong with it, if anything, and then it is not added */
    std::optional<std::string> add(const CecDevice& device);

    /**
     * Puts a device in the place of the one with its address, or adds it; the very same device is only plugged in or
     * unplugged. @return as `add`
     */
    std::optional<std::string> put(const CecDevice& device);

    /**
     * Takes away all devices but those with these addresses, which have this order then; false, and nothing is done,
     * when one of them is not there or is given twice.
     */
    bool keep(const std::vector<std::int32_t>& logAddrs);

    /** Takes a device away, unplugged first; false when there is none of the address. */
    bool remove(std::int32_t logAddr);

    /** Replaces the devices and the one that plays, without events. */
    void load(std::vector<CecDevice> devices, std::int32_t playing);

private:
    std::vector<CecDevice>::iterator find(std::int32_t logAddr);
    void change(CecDevice& device, bool plugged);
    void play(std::int32_t logAddr);

    std::vector<CecDevice> mDevices;
    const std::int32_t mArcPort;
    std::int32_t mPlaying = kTelevision;
    PublishedEvents& mEvents;
    Revision& mRevision;
};

} // namespace kelutv::simulator
