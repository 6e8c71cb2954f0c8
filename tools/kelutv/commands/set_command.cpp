#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/settings/SettingValue.h"

#include <memory>
#include <string>

namespace kelutv::tool {

namespace {

void set(const Output& output, const std::string& name, const std::string& text) {
    const Setting& setting = settingNamed(name);
    const Json wanted = writeSetting(setting, text);
    const Json value = readSetting(setting);
    if (value != wanted) {
        output.message("set to " + shownText(setting, wanted) + ", the television has " + shownText(setting, value));
    }
    output.line(shownText(setting, value));
    output.document(documentOf(setting, value));
}

} // namespace

void addSetCommand(const Command& program, Context& context) {
    const Subcommand command(
        program, "set",
        "Change a setting of the television, and print its new value\n"
        "A VALUE that is a name can be shortened as long as one is meant. 'kelutv get' lists every "
        "SETTING and its values.\n\n"
        "Examples:\n"
        "kelutv set volume 35\n"
        "kelutv set volume +5\n"
        "kelutv set mute toggle\n"
        "kelutv set source hdmi2");
    const auto name = std::make_shared<std::string>();
    const auto value = std::make_shared<std::string>();
    command.required("SETTING", *name, "What to change: volume, source, picture-mode, ...");
    command.required("VALUE", *value, "A number, +N or -N; on, off or toggle; a name");
    command.action([&context, name, value] { set(context.output, *name, *value); });
}

} // namespace kelutv::tool
