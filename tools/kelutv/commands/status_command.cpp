#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/settings/Equipment.h"
#include "tools/kelutv/settings/Screen.h"

namespace kelutv::tool {

namespace {

Json readInputRows(std::vector<ScreenRow>& rows) {
    Json inputs = Json::array();
    for (const Input& input : readInputs()) {
        rows.push_back(
            {"input " + sourceName(input.source), textOf(input), input.hasSignal ? Style::Good : Style::Dim});
        inputs.add(documentOf(input));
    }
    return inputs;
}

Json readCecRows(std::vector<ScreenRow>& rows) {
    Json devices = Json::array();
    for (const CecDevice& device : readCecDevices()) {
        rows.push_back({"cec " + std::to_string(device.address), textOf(device), Style::Value});
        devices.add(documentOf(device));
    }
    return devices;
}

void addParts(Screen& screen) {
    for (const Setting& setting : settings()) {
        if (setting.place == Place::Status) {
            screen.add(setting);
        }
    }
    screen.add("inputs", readInputRows);
    screen.add("cec-devices", readCecRows);
}

} // namespace

void addStatusCommand(const Command& program, Context& context) {
    const Subcommand command(program, "status",
                             "Show the television on one screen\n"
                             "What cannot be read says so in its line; the rest is shown.\n\n"
                             "Examples:\n"
                             "kelutv status\n"
                             "kelutv status --json");
    command.action([&context] { showScreen(context.output, addParts); });
}

} // namespace kelutv::tool
