#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/settings/ThingValue.h"

#include <algorithm>
#include <memory>
#include <string>

namespace kelutv::tool {

namespace {

std::string padded(const std::string& text, std::size_t width) {
    return text + std::string(std::max(text.size(), width) - text.size(), ' ');
}

void listThing(const Output& output, const Thing& thing) {
    constexpr std::size_t kNameWidth = 20;
    const std::string allowed = thing.setter.empty() ? "" : allowedFor(thing);
    output.line(output.styled(Style::Name, padded(thing.name, kNameWidth)) + thing.meaning +
                (allowed.empty() ? "" : ": " + output.styled(Style::Value, allowed)));
    output.document({{"thing", thing.name}, {"meaning", thing.meaning}, {"allowed", allowed}});
}

void get(const Output& output, const std::string& name) {
    if (name.empty()) {
        for (const Thing& thing : things()) {
            listThing(output, thing);
        }
        return;
    }
    const Thing& thing = thingNamed(name);
    const Json value = readThing(thing);
    output.line(shownText(thing, value));
    output.document({{"thing", thing.name}, {"value", value}});
}

} // namespace

void addGetCommand(const Command& program, Context& context) {
    const Subcommand command(program, "get",
                             "Read what a person changes daily\n"
                             "Without a THING: lists all of them and what each can be.\n\n"
                             "Examples:\n"
                             "kelutv get volume\n"
                             "kelutv get source --json\n"
                             "kelutv get");
    const auto name = std::make_shared<std::string>();
    command.optional("THING", *name, "What to read: volume, source, picture-mode, ...");
    command.action([&context, name] { get(context.output, *name); });
}

} // namespace kelutv::tool
