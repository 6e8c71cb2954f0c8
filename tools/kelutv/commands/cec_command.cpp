#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/settings/Equipment.h"
#include "tools/kelutv/text/AllowedValues.h"
#include "tools/kelutv/text/EnumeratedValue.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "wire/text/Nearest.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

#include <memory>

namespace kelutv::tool {

namespace {

void list(const Output& output) {
    Json devices = Json::array();
    for (const CecDevice& device : readCecDevices()) {
        const std::string address = std::to_string(device.address);
        output.line(output.styled(Style::Number, address) +
                    std::string(address.size() < 3 ? 4 - address.size() : 1, ' ') + textOf(device));
        devices.add(documentOf(device));
    }
    const Arc arc = readArc();
    output.line(output.styled(Style::Name, "arc") + ' ' + sourceName(sourceOfPort(arc.port)) + ", " +
                (arc.isSupported ? "supported" : "not supported") + ", " + (arc.isActive ? "active" : "not active"));
    output.document({{"devices", devices}, {"arc", documentOf(arc)}});
}

void select(const Output& output, const std::string& address) {
    constexpr int kLastAddress = 15;
    const auto number = wire::wholeNumber<int>(address);
    if (!number || *number < 0 || *number > kLastAddress) {
        throw UsageError('\'' + wire::shown(address) + "' is no logical address, 0 to 15; 'kelutv cec' lists them");
    }
    callFunction(functionNamed("linux_tv_HdmiCEC_selectDevice"), {address});
    output.document({{"selected", *number}});
}

/** A key goes down, then up. */
void press(const Output& output, const std::string& key) {
    const std::int32_t number = valueNamed(*wire::findEnumeration("E_MW_CEC_UI_CMD"), key, "cec key");
    for (const char* const direction : {"true", "false"}) {
        callFunction(functionNamed("linux_tv_HdmiCEC_sendCecCommand"),
                     {"IrCommand=" + std::to_string(number) + ",KeyPressed=" + direction});
    }
    output.document({{"key", valueDocument(number, wire::findEnumeration("E_MW_CEC_UI_CMD"))}});
}

void run(const Output& output, const std::vector<std::string>& words) {
    if (words.empty()) {
        return list(output);
    }
    const std::string& action = words.front();
    if (action != "select" && action != "key") {
        throw UsageError("cec can do select and key, not '" + wire::shown(action) + '\'' +
                         wire::nearestHint(action, {"select", "key"}));
    }
    if (words.size() != 2) {
        throw UsageError(action == "select" ? "cec select takes the logical address of a device"
                                            : "cec key takes a key");
    }
    action == "select" ? select(output, words.back()) : press(output, words.back());
}

} // namespace

void addCecCommand(const Command& program, Context& context) {
    const auto words = std::make_shared<std::vector<std::string>>();
    const Subcommand command(program, "cec",
                             "List the HDMI-CEC devices and the audio return channel\n"
                             "'select ADDRESS' makes a device the active one; 'key KEY' presses and releases a key of "
                             "the active device.\n\n"
                             "Examples:\n"
                             "kelutv cec\n"
                             "kelutv cec select 4\n"
                             "kelutv cec key play");
    command.words("ACTION", *words, "Nothing to list, or select ADDRESS, or key KEY");
    command.action([&context, words] { run(context.output, *words); });
}

} // namespace kelutv::tool
