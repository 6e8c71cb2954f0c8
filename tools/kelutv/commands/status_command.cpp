#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/settings/ThingValue.h"

#include <optional>
#include <string>

namespace kelutv::tool {

namespace {

/** The screen, one thing a line, or one document of all. */
class StatusScreen {
public:
    explicit StatusScreen(const Output& output) : mOutput(output) {}

    /** @throws LinkError */
    void add(const Thing& thing) {
        try {
            const Json value = readThing(thing);
            mDocument[thing.name] = value;
            show(thing.name, shownText(thing, value), styleOf(value));
        } catch (const ServiceError& error) {
            mDocument[thing.name] = nullptr;
            mDocument["unreadable"][thing.name] = error.what();
            show(thing.name, std::string("unreadable: ") + error.what(), Style::Bad);
        }
    }

    void end() const {
        if (!mDocument.isNull()) {
            mOutput.document(mDocument);
        }
    }

private:
    static Style styleOf(const Json& value) {
        if (value.isBoolean()) {
            return value.asBoolean() ? Style::Good : Style::Dim;
        }
        return value.isNumber() ? Style::Number : Style::Value;
    }

    void show(std::string name, const std::string& text, Style style) const {
        constexpr std::size_t kNameWidth = 20;
        name.resize(kNameWidth, ' ');
        mOutput.line(name + mOutput.styled(style, text));
    }

    const Output& mOutput;
    Json mDocument;
};

void showStatus(const Output& output) {
    StatusScreen screen(output);
    std::optional<LinkError> lost;
    for (const Thing& thing : things()) {
        if (thing.place != Place::Status) {
            continue;
        }
        try {
            screen.add(thing);
        } catch (const LinkError& error) {
            lost = error;
            break;
        }
    }
    screen.end();
    if (lost) {
        throw LinkError(*lost);
    }
}

} // namespace

void addStatusCommand(const Command& program, Context& context) {
    const Subcommand command(program, "status",
                             "Show the television on one screen\n"
                             "What cannot be read is told of in its line; the rest stands all the same.\n\n"
                             "Examples:\n"
                             "kelutv status\n"
                             "kelutv status --json");
    command.action([&context] { showStatus(context.output); });
}

} // namespace kelutv::tool
