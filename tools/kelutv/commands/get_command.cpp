#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/settings/SettingValue.h"

#include <algorithm>
#include <memory>
#include <string>

namespace kelutv::tool {

namespace {

std::string padded(const std::string& text, std::size_t width) {
    return text + std::string(std::max(text.size(), width) - text.size(), ' ');
}

void listSetting(const Output& output, const Setting& setting) {
    constexpr std::size_t kNameWidth = 20;
    const std::string allowed = setting.setter.empty() ? "" : allowedFor(setting);
    output.line(output.styled(Style::Name, padded(setting.name, kNameWidth)) + setting.meaning +
                (allowed.empty() ? "" : ": " + output.styled(Style::Value, allowed)));
    output.document({{"thing", setting.name}, {"meaning", setting.meaning}, {"allowed", allowed}});
}

void get(const Output& output, const std::string& name) {
    if (name.empty()) {
        for (const Setting& setting : settings()) {
            listSetting(output, setting);
        }
        return;
    }
    const Setting& setting = settingNamed(name);
    const Json value = readSetting(setting);
    output.line(shownText(setting, value));
    output.document(documentOf(setting, value));
}

} // namespace

void addGetCommand(const Command& program, Context& context) {
    const Subcommand command(program, "get",
                             "Read a setting of the television\n"
                             "Without a SETTING: lists all of them and what each can be.\n\n"
                             "Examples:\n"
                             "kelutv get volume\n"
                             "kelutv get source --json\n"
                             "kelutv get");
    const auto name = std::make_shared<std::string>();
    command.optional("SETTING", *name, "What to read: volume, source, picture-mode, ...");
    command.action([&context, name] { get(context.output, *name); });
}

} // namespace kelutv::tool
