#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/settings/SettingValue.h"

#include <optional>
#include <string>

namespace kelutv::tool {

namespace {

/** The screen, one setting a line, or one document of all. */
class StatusScreen {
public:
    explicit StatusScreen(const Output& output) : mOutput(output) {}

    /** @throws LinkError */
    void add(const Setting& setting) {
        try {
            const Json value = readSetting(setting);
            mDocument[setting.name] = valueDocument(setting, value);
            show(setting.name, shownText(setting, value), styleOf(value));
        } catch (const ServiceError& error) {
            mDocument[setting.name] = nullptr;
            mDocument["unreadable"][setting.name] = error.what();
            show(setting.name, std::string("unreadable: ") + error.what(), Style::Bad);
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
    for (const Setting& setting : settings()) {
        if (setting.place != Place::Status) {
            continue;
        }
        try {
            screen.add(setting);
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
                             "A setting that cannot be read says so in its line; the others are shown.\n\n"
                             "Examples:\n"
                             "kelutv status\n"
                             "kelutv status --json");
    command.action([&context] { showStatus(context.output); });
}

} // namespace kelutv::tool
