#include "simulator/television/CecBus.h"

#include "wire/events/Payload.h"

#include <kelutv-simulator/events.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace kelutv::simulator {

namespace {

/** The logical address of an audio system. */
constexpr std::int32_t kAudioSystem = 5;

} // namespace

CecBus::CecBus(const Configuration& configuration, PublishedEvents& events, Revision& revision)
    : mDevices(configuration.cecDevices()), mArcPort(configuration.arcPort()), mEvents(events), mRevision(revision) {}

std::vector<CecDevice> CecBus::devices() const {
    std::vector<CecDevice> devices;
    std::copy_if(mDevices.begin(), mDevices.end(), std::back_inserter(devices),
                 [](const CecDevice& device) { return device.plugged; });
    return devices;
}

bool CecBus::isArcActive() const {
    return std::any_of(mDevices.begin(), mDevices.end(), [this](const CecDevice& device) {
        return device.plugged && device.logAddr == kAudioSystem && device.hdmiDevPort == mArcPort;
    });
}

bool CecBus::select(std::int32_t logAddr) {
    const auto device = find(logAddr);
    if (logAddr != kTelevision && (device == mDevices.end() || !device->plugged)) {
        return false;
    }
    play(logAddr);
    return true;
}

bool CecBus::plug(std::int32_t logAddr, bool plugged) {
    const auto device = find(logAddr);
    if (device == mDevices.end()) {
        return false;
    }
    change(*device, plugged);
    return true;
}

std::optional<std::string> CecBus::add(const CecDevice& device) {
    if (find(device.logAddr) != mDevices.end()) {
        return "there is a CEC device with the logical address " + std::to_string(device.logAddr) + " already";
    }
    if (auto objection = objectionTo(device)) {
        return objection;
    }
    mDevices.push_back(device);
    mDevices.back().plugged = false;
    mRevision.advance();
    change(mDevices.back(), device.plugged);
    return std::nullopt;
}

std::optional<std::string> CecBus::put(const CecDevice& device) {
    const auto known = find(device.logAddr);
    if (known == mDevices.end()) {
        return add(device);
    }
    if (auto objection = objectionTo(device)) {
        return objection;
    }
    if (!isSameDevice(*known, device)) {
        change(*known, false);
        *known = device;
        known->plugged = false;
        mRevision.advance();
    }
    change(*known, device.plugged);
    return std::nullopt;
}

bool CecBus::keep(const std::vector<std::int32_t>& logAddrs) {
    const auto placeOf = [&logAddrs](const CecDevice& device) {
        return std::find(logAddrs.begin(), logAddrs.end(), device.logAddr);
    };
    const auto kept = std::count_if(mDevices.begin(), mDevices.end(),
                                    [&](const CecDevice& device) { return placeOf(device) != logAddrs.end(); });
    if (static_cast<std::size_t>(kept) != logAddrs.size()) {
        return false;
    }
    for (const CecDevice& device : std::vector<CecDevice>(mDevices)) {
        if (placeOf(device) == logAddrs.end()) {
            remove(device.logAddr);
        }
    }
    const auto precedes = [&placeOf](const CecDevice& one, const CecDevice& other) {
        return placeOf(one) < placeOf(other);
    };
    if (!std::is_sorted(mDevices.begin(), mDevices.end(), precedes)) {
        std::sort(mDevices.begin(), mDevices.end(), precedes);
        mRevision.advance();
    }
    return true;
}

bool CecBus::remove(std::int32_t logAddr) {
    const auto device = find(logAddr);
    if (device == mDevices.end()) {
        return false;
    }
    change(*device, false);
    mDevices.erase(device);
    mRevision.advance();
    return true;
}

void CecBus::load(std::vector<CecDevice> devices, std::int32_t playing) {
    mDevices = std::move(devices);
    mPlaying = playing;
}

std::vector<CecDevice>::iterator CecBus::find(std::int32_t logAddr) {
    return std::find_if(mDevices.begin(), mDevices.end(),
                        [logAddr](const CecDevice& device) { return device.logAddr == logAddr; });
}

void CecBus::change(CecDevice& device, bool plugged) {
    if (device.plugged == plugged) {
        return;
    }
    device.plugged = plugged;
    mRevision.advance();
    mEvents.push_back({KELU_SIM_EVENT_CEC_DEVICE_CHANGED,
                       wire::payloadOf({device.logAddr, device.hdmiDevPort, std::int32_t{plugged}}),
                       device.name + (plugged ? " plugged in" : " unplugged")});
    if (!plugged && mPlaying == device.logAddr) {
        play(kTelevision);
    }
}

void CecBus::play(std::int32_t logAddr) {
    if (mPlaying != logAddr) {
        mPlaying = logAddr;
        mRevision.advance();
        mEvents.push_back({KELU_SIM_EVENT_CEC_PLAYING_CHANGED, wire::payloadOf({logAddr}),
                           "CEC device " + std::to_string(logAddr) + " plays"});
    }
}

} // namespace kelutv::simulator
