#include "CecBus.h"

#include "Events.h"

#include <algorithm>

namespace simulator {

namespace {

/** The logical address of an audio system. */
constexpr std::int32_t kAudioSystem = 5;

const CecDevice* findCecDevice(std::int32_t logAddr) {
    const Rows<CecDevice> devices = allCecDevices();
    const auto* const found = std::find_if(devices.begin(), devices.end(),
                                           [logAddr](const CecDevice& device) { return device.logAddr == logAddr; });
    return found != devices.end() ? found : nullptr;
}

} // namespace

CecBus::CecBus(Notices& notices) : mNotices(notices) {
    for (const CecDevice& device : allCecDevices()) {
        if (device.plugged) {
            mPlugged.insert(device.logAddr);
        }
    }
}

std::vector<const CecDevice*> CecBus::devices() const {
    std::vector<const CecDevice*> devices;
    for (const CecDevice& device : allCecDevices()) {
        if (mPlugged.count(device.logAddr) != 0) {
            devices.push_back(&device);
        }
    }
    return devices;
}

bool CecBus::isArcActive() const {
    const CecDevice* const audioSystem = findCecDevice(kAudioSystem);
    return audioSystem != nullptr && mPlugged.count(kAudioSystem) != 0 && audioSystem->hdmiDevPort == cecArcPort();
}

bool CecBus::select(std::int32_t logAddr) {
    if (logAddr != kTelevision && mPlugged.count(logAddr) == 0) {
        return false;
    }
    play(logAddr);
    return true;
}

bool CecBus::plug(std::int32_t logAddr, bool plugged) {
    const CecDevice* const device = findCecDevice(logAddr);
    if (device == nullptr) {
        return false;
    }
    const bool changed = plugged ? mPlugged.insert(logAddr).second : mPlugged.erase(logAddr) != 0;
    if (changed) {
        const std::string text = std::string(device->name) + (plugged ? " plugged in" : " unplugged");
        mNotices.push_back({kCecDeviceChanged, payloadOf({logAddr, device->hdmiDevPort, std::int32_t{plugged}}), text});
    }
    if (!plugged && mPlaying == logAddr) {
        play(kTelevision);
    }
    return true;
}

void CecBus::play(std::int32_t logAddr) {
    if (mPlaying != logAddr) {
        mPlaying = logAddr;
        mNotices.push_back(
            {kCecPlayingChanged, payloadOf({logAddr}), "CEC device " + std::to_string(logAddr) + " plays"});
    }
}

} // namespace simulator
