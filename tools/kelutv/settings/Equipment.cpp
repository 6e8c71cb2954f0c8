#include "tools/kelutv/settings/Equipment.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/text/EnumeratedValue.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Names.h"
#include "wire/text/Shown.h"

#include <kelutv/source_types.h>
#include <kelutv/video_types.h>

#include <algorithm>

namespace kelutv::tool {

namespace {

const wire::Enumeration& sources() { return *wire::findEnumeration("KELU_TV_SRC_E"); }

const wire::Enumeration& windows() { return *wire::findEnumeration("KELU_TV_WINDOW_E"); }

std::string nameOf(std::int32_t value, const wire::Enumeration& names) {
    const std::string name = wire::namesOf(names).shortNameOf(value);
    return name.empty() ? std::to_string(value) : name;
}

CallResult call(const char* function, const std::vector<std::string>& arguments = {}) {
    return callFunction(functionNamed(function), arguments);
}

std::int32_t numberFrom(const char* function, const std::vector<std::string>& arguments = {}) {
    return static_cast<std::int32_t>(call(function, arguments).result.asInteger());
}

bool flagFrom(const char* function, const std::vector<std::string>& arguments = {}) {
    const Json result = call(function, arguments).result;
    return result.isBoolean() ? result.asBoolean() : result.asInteger() != 0;
}

/** A list that comes in an output; empty when it was not written. */
std::vector<std::int32_t> numbersFrom(const char* function, const char* output) {
    const CallResult read = call(function);
    const Json& list = read.outputs.at(output);
    std::vector<std::int32_t> numbers;
    if (list.isArray()) {
        for (const Json& entry : list.entries()) {
            numbers.push_back(static_cast<std::int32_t>(entry.asInteger()));
        }
    }
    return numbers;
}

bool isOneOf(std::int32_t number, const std::vector<std::int32_t>& numbers) {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

/** Gives the windows to the inputs that they show; a television need not have the second. */
void addWindows(std::vector<Input>& inputs) {
    for (const std::int32_t window : {KELU_TV_WINDOW_MAIN, KELU_TV_WINDOW_SUB}) {
        const CallResult read =
            tryFunction(functionNamed("linux_tv_SourceManager_getCurSourceId"), {std::to_string(window)});
        for (Input& input : inputs) {
            if (read.failure.empty() && read.result == input.source) {
                input.windows.push_back(window);
            }
        }
    }
}

} // namespace

std::vector<Input> readInputs() {
    std::vector<Input> inputs;
    const std::vector<std::int32_t> plugged = numbersFrom("linux_tv_SourceManager_getAvailSourceList", "list");
    for (const std::int32_t source : numbersFrom("linux_tv_SourceManager_getSourceList", "list")) {
        const bool hasSignal = flagFrom("linux_tv_SourceManager_getOfflineSigStatus", {std::to_string(source)});
        inputs.push_back({source, isOneOf(source, plugged), hasSignal, {}});
    }
    addWindows(inputs);
    return inputs;
}

std::vector<CecDevice> readCecDevices() {
    const std::int32_t playing = numberFrom("HdmiCEC::getPlayingDeviceLogAddr");
    const CallResult read = call("linux_tv_HdmiCEC_getDeviceListInfo");
    std::vector<CecDevice> devices;
    for (const Json& device : read.outputs.at("deviceList").entries()) {
        const auto address = static_cast<std::int32_t>(device.at("logAddr").asInteger());
        devices.push_back({address, static_cast<std::int32_t>(device.at("hdmiDevPort").asInteger()),
                           device.at("phyAddr").asText(), device.at("deVName").asText(),
                           device.at("hdmiListText").asText(), address == playing});
    }
    return devices;
}

Arc readArc() {
    return {flagFrom("HdmiCEC::isArcSupported"), flagFrom("HdmiCEC::GetARCActiveStatus"),
            numberFrom("linux_tv_HdmiCEC_getSupportArcPort")};
}

std::string sourceName(std::int32_t source) { return nameOf(source, sources()); }

std::int32_t sourceOfPort(std::int32_t port) { return KELU_TV_SRC_HDMI1 + port; }

std::string textOf(const Input& input) {
    std::vector<std::string> parts{input.isPlugged ? "plugged" : "unplugged", input.hasSignal ? "signal" : "no signal"};
    for (const std::int32_t window : input.windows) {
        parts.push_back(nameOf(window, windows()));
    }
    return joined(parts, ", ");
}

std::string textOf(const CecDevice& device) {
    std::vector<std::string> parts;
    for (const std::string& part : {sourceName(sourceOfPort(device.port)), device.physicalAddress, device.name,
                                    std::string(device.isPlaying ? "playing" : "")}) {
        if (!part.empty()) {
            parts.push_back(wire::shown(part));
        }
    }
    return joined(parts, ", ");
}

Json documentOf(const Input& input) {
    return {{"source", valueDocument(input.source, &sources())},
            {"plugged", input.isPlugged},
            {"signal", input.hasSignal},
            {"windows", valueDocument(input.windows, &windows())}};
}

Json documentOf(const CecDevice& device) {
    return {{"address", device.address},
            {"port", device.port},
            {"source", valueDocument(sourceOfPort(device.port), &sources())},
            {"physicalAddress", device.physicalAddress},
            {"name", device.name},
            {"text", device.listText},
            {"playing", device.isPlaying}};
}

Json documentOf(const Arc& arc) {
    return {{"supported", arc.isSupported},
            {"active", arc.isActive},
            {"port", arc.port},
            {"source", valueDocument(sourceOfPort(arc.port), &sources())}};
}

} // namespace kelutv::tool
