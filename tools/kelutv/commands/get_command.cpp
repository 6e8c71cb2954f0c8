#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/settings/SettingReadings.h"
#include "tools/kelutv/settings/SettingValue.h"

#include <algorithm>
#include <memory>
#include <string>

namespace kelutv::tool {

namespace {

struct Options {
    std::vector<std::string> names;
    bool all = false;
};

std::string padded(const std::string& text, std::size_t width) {
    return text + std::string(std::max(text.size() + 1, width) - text.size(), ' ');
}

std::string shownText(const SettingReading& reading) {
    return reading.value.isNull() ? "-" : shownText(*reading.setting, reading.value);
}

std::string knownText(const Setting& setting) {
    std::string text = setting.meaning;
    if (!setting.setter.empty()) {
        text += ": " + allowedFor(setting);
    }
    const std::string range = rangeText(setting);
    return text + (range.empty() ? "" : "; " + range);
}

/** Also without a service, which leaves out the values. */
void listSettings(const Output& output) {
    constexpr std::size_t kNameWidth = 20;
    constexpr std::size_t kValueWidth = 16;
    std::vector<const Setting*> all;
    for (const Setting& setting : settings()) {
        all.push_back(&setting);
    }
    const SettingReadings readings = readSettings(all);
    for (const SettingReading& reading : readings.all) {
        output.line(output.styled(Style::Name, padded(reading.setting->name, kNameWidth)) +
                    output.styled(Style::Value, padded(shownText(reading), kValueWidth)) + knownText(*reading.setting));
        output.document(wholeDocument(reading));
    }
    if (readings.lost) {
        std::rethrow_exception(readings.lost);
    }
}

void getOne(const Output& output, const Setting& setting) {
    const Json value = readSetting(setting);
    output.line(shownText(setting, value));
    output.document(documentOf(setting, value));
}

/** One that cannot be read does not keep the others back. */
void getSeveral(const Output& output, const std::vector<const Setting*>& settings) {
    const SettingReadings readings = readSettings(settings);
    std::string failure;
    for (const SettingReading& reading : readings.all) {
        if (!reading.value.isNull()) {
            output.line(output.styled(Style::Name, reading.setting->name) + ' ' + shownText(reading));
            output.document(documentOf(*reading.setting, reading.value));
        } else if (!reading.failure.empty()) {
            failure += (failure.empty() ? "" : "; ") + reading.failure;
        }
    }
    if (readings.lost) {
        std::rethrow_exception(readings.lost);
    }
    if (!failure.empty()) {
        throw ServiceError(failure);
    }
}

void get(const Output& output, const Options& options) {
    if (options.all && !options.names.empty()) {
        throw UsageError("--all takes no SETTING");
    }
    std::vector<const Setting*> settings;
    for (const std::string& name : options.names) {
        settings.push_back(&settingNamed(name));
    }
    if (settings.empty()) {
        listSettings(output);
    } else if (settings.size() == 1) {
        getOne(output, *settings.front());
    } else {
        getSeveral(output, settings);
    }
}

} // namespace

void addGetCommand(const Command& program, Context& context) {
    const Subcommand command(program, "get",
                             "Read settings of the television\n"
                             "One SETTING: its value alone; several: a line each. Without a SETTING all of them, with "
                             "value, meaning and what is known of what each can be.\n\n"
                             "Examples:\n"
                             "kelutv get volume\n"
                             "kelutv get volume source mute\n"
                             "kelutv get source --json\n"
                             "kelutv get");
    const auto options = std::make_shared<Options>();
    command.flag("-a,--all", options->all, "All settings, as without a SETTING");
    command.words("SETTING", options->names, "What to read: volume, source, picture-mode, ...");
    command.action([&context, options] { get(context.output, *options); });
}

} // namespace kelutv::tool
