#include "tools/kelutv/settings/SettingValue.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/EnumeratedValue.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "wire/text/Names.h"
#include "wire/text/Nearest.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace kelutv::tool {

namespace {

Json named(const Setting& setting, const Json& number) {
    const auto value = static_cast<std::int32_t>(number.asInteger());
    const std::string name = wire::namesOf(enumerationOf(setting)).shortNameOf(value);
    return name.empty() ? number : Json(name);
}

bool truthOf(const Json& value) { return value.isBoolean() ? value.asBoolean() : value.asInteger() != 0; }

CallResult call(const std::string& function, const std::vector<std::string>& arguments) {
    return callFunction(functionNamed(function), arguments);
}

[[noreturn]] void refuse(const Setting& setting, const std::string& text) {
    throw UsageError(setting.name + " cannot be '" + wire::shown(text) + "', allowed: " + allowedFor(setting) +
                     wire::nearestHint(text, valueNames(setting)));
}

/** The number behind a sign, by which to change a setting; nothing for anything else. */
std::optional<int> changeIn(const std::string& text) {
    if (text.size() < 2 || (text.front() != '+' && text.front() != '-') || text[1] == '-') {
        return std::nullopt;
    }
    return wire::wholeNumber<int>(text.front() == '+' ? text.substr(1) : text);
}

Json numberFor(const Setting& setting, const std::string& text) {
    if (const std::optional<int> change = changeIn(text)) {
        const std::int64_t sum = readSetting(setting).asInteger() + *change;
        return std::clamp<std::int64_t>(sum, setting.low, setting.high);
    }
    const std::optional<int> value = wire::wholeNumber<int>(text);
    if (!value || *value < setting.low || *value > setting.high) {
        refuse(setting, text);
    }
    return *value;
}

Json flagFor(const Setting& setting, const std::string& text) {
    static const std::vector<std::string> on{"on", "true", "yes", "1"};
    static const std::vector<std::string> off{"off", "false", "no", "0"};
    if (text == "toggle") {
        return !readSetting(setting).asBoolean();
    }
    const bool isOn = std::find(on.begin(), on.end(), text) != on.end();
    if (!isOn && std::find(off.begin(), off.end(), text) == off.end()) {
        refuse(setting, text);
    }
    return isOn;
}

Json choiceFor(const Setting& setting, const std::string& text) {
    const std::vector<std::string> allowed = valueNames(setting);
    try {
        const wire::Names& names = wire::namesOf(enumerationOf(setting));
        const std::string meant = names.shortNameOf(names.valueOf(text));
        if (std::find(allowed.begin(), allowed.end(), meant) != allowed.end()) {
            return meant;
        }
    } catch (const wire::UnknownName&) { // Reported below, with what the setting allows.
    }
    refuse(setting, text);
}

Json valueFor(const Setting& setting, const std::string& text) {
    switch (setting.kind) {
    case SettingKind::Number:
        return numberFor(setting, text);
    case SettingKind::Switch:
        return flagFor(setting, text);
    case SettingKind::Choice:
        return choiceFor(setting, text);
    case SettingKind::Text:
    case SettingKind::Timing:
        break;
    }
    refuse(setting, text);
}

std::string argumentFor(const Setting& setting, const Json& value) {
    if (setting.kind == SettingKind::Choice) {
        return std::to_string(wire::namesOf(enumerationOf(setting)).valueOf(value.asText()));
    }
    return value.dump();
}

/** Of a choice the number behind its short name. */
Json numberOf(const Setting& setting, const Json& value) {
    const bool isNamed = setting.kind == SettingKind::Choice && value.isText();
    return isNamed ? Json(wire::namesOf(enumerationOf(setting)).valueOf(value.asText())) : value;
}

std::string timingText(const Json& timing) {
    return timing.at("width").dump() + 'x' + timing.at("height").dump() + ", " + timing.at("frameRate").dump() + " Hz" +
           (truthOf(timing.at("interlace")) ? ", interlaced" : "");
}

} // namespace

Json readSetting(const Setting& setting) {
    const CallResult read = call(setting.getter, setting.getterArguments);
    Json value = setting.output.empty() ? read.result : read.outputs.at(setting.output);
    if (value.isNull()) {
        throw ServiceError("the service gives no value for " + setting.name);
    }
    if (setting.kind == SettingKind::Choice) {
        return named(setting, value);
    }
    return setting.kind == SettingKind::Switch ? truthOf(value) : value;
}

Json writeSetting(const Setting& setting, const std::string& text) {
    if (setting.setter.empty()) {
        throw UsageError(setting.name + " can only be read");
    }
    Json value = valueFor(setting, text);
    std::vector<std::string> arguments = setting.setterArguments;
    std::replace(arguments.begin(), arguments.end(), std::string("%"), argumentFor(setting, value));
    call(setting.setter, arguments);
    return value;
}

Json valueDocument(const Setting& setting, const Json& value) {
    return valueDocument(typeOf(setting), numberOf(setting, value));
}

Json documentOf(const Setting& setting, const Json& value) {
    Json document{{"thing", setting.name}};
    const wire::ValueType& type = typeOf(setting);
    addValue(document, type.record != nullptr ? valueDocument(type, value) : numberOf(setting, value), type.names);
    return document;
}

std::string shownText(const Setting& setting, const Json& value) {
    if (setting.kind == SettingKind::Timing) {
        return timingText(value);
    }
    if (value.isBoolean()) {
        return value.asBoolean() ? "on" : "off";
    }
    const std::string text = value.isText() ? value.asText() : value.dump();
    return setting.unit.empty() ? text : text + ' ' + setting.unit;
}

} // namespace kelutv::tool
