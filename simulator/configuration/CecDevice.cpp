#include "simulator/configuration/CecDevice.h"

#include "simulator/files/JsonText.h"
#include "wire/text/Shown.h"

#include <set>
#include <utility>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kLongestText = 255;

/** `1.0.0.0`: four hexadecimal digits separated by dots. */
bool isPhysicalAddress(const std::string& text) {
    constexpr std::size_t kLength = 7;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = (text[i] >= '0' && text[i] <= '9') || (text[i] >= 'A' && text[i] <= 'F');
        if (i % 2 == 0 ? !isDigit : text[i] != '.') {
            return false;
        }
    }
    return text.size() == kLength;
}

CecDevice readCecDevice(const JsonNode& node) {
    node.membersOf({"logAddr", "hdmiDevPort", "name", "phyAddr", "listText", "plugged"});
    CecDevice device{node.at("logAddr").number(), node.at("hdmiDevPort").number(), node.at("name").text(),
                     node.at("phyAddr").text(),   node.at("listText").text(),      node.at("plugged").truth()};
    if (const auto objection = objectionTo(device)) {
        node.fail(*objection);
    }
    return device;
}

} // namespace

bool isSameDevice(const CecDevice& one, const CecDevice& other) {
    return one.logAddr == other.logAddr && one.hdmiDevPort == other.hdmiDevPort && one.name == other.name &&
           one.phyAddr == other.phyAddr && one.listText == other.listText;
}

std::optional<std::string> objectionTo(const CecDevice& device) {
    if (device.logAddr < 1 || device.logAddr > 14) {
        return "logAddr goes from 1 to 14, it cannot be " + std::to_string(device.logAddr);
    }
    if (device.hdmiDevPort < 0) {
        return "hdmiDevPort is the number of a port, it cannot be " + std::to_string(device.hdmiDevPort);
    }
    for (const auto& [field, text] :
         {std::pair<const char*, const std::string&>{"name", device.name}, {"listText", device.listText}}) {
        if (text.size() > kLongestText) {
            return std::string(field) + " has at most " + std::to_string(kLongestText) + " bytes, not " +
                   std::to_string(text.size());
        }
        if (!isUtf8(text)) {
            return std::string(field) + " must be UTF-8, it cannot be '" + wire::shown(text) + "'";
        }
    }
    if (!isPhysicalAddress(device.phyAddr)) {
        return "phyAddr has four hexadecimal digits as in 1.0.0.0, it cannot be '" + wire::shown(device.phyAddr) + "'";
    }
    return std::nullopt;
}

std::vector<CecDevice> readCecDevices(const JsonNode& node) {
    std::vector<CecDevice> devices;
    std::set<std::int32_t> used;
    for (const JsonNode& element : node.elements()) {
        devices.push_back(readCecDevice(element));
        if (!used.insert(devices.back().logAddr).second) {
            element.at("logAddr").fail("logical address " + element.at("logAddr").shown() + " is given twice");
        }
    }
    return devices;
}

std::string jsonOf(const CecDevice& device) {
    return jsonObject({{"logAddr", std::to_string(device.logAddr)},
                       {"hdmiDevPort", std::to_string(device.hdmiDevPort)},
                       {"name", jsonString(device.name)},
                       {"phyAddr", jsonString(device.phyAddr)},
                       {"listText", jsonString(device.listText)},
                       {"plugged", jsonTruth(device.plugged)}});
}

} // namespace kelutv::simulator
