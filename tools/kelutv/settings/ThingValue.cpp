#include "tools/kelutv/settings/ThingValue.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "tools/process/Redirection.h"
#include "wire/text/Names.h"
#include "wire/text/Nearest.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <vector>

namespace kelutv::tool {

namespace {

Json named(const Thing& thing, const Json& number) {
    const auto value = static_cast<std::int32_t>(number.asInteger());
    const std::string name = wire::namesOf(enumerationOf(thing)).shortNameOf(value);
    return name.empty() ? number : Json(name);
}

bool truthOf(const Json& value) { return value.isBoolean() ? value.asBoolean() : value.asInteger() != 0; }

/** Without what the library logs and prints on standard error, unless the person asked for a log. */
CallResult callQuietly(const std::string& function, const std::vector<std::string>& arguments) {
    std::optional<process::MutedStandardError> muted;
    if (std::getenv("KQLOG_LEVEL") == nullptr) {
        muted.emplace();
    }
    return callFunction(functionNamed(function), arguments);
}

[[noreturn]] void refuse(const Thing& thing, const std::string& text) {
    throw UsageError(thing.name + " cannot be '" + text + "', allowed: " + allowedFor(thing) +
                     wire::nearestHint(text, valueNames(thing)));
}

std::optional<int> wholeNumber(const std::string& digits) {
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc() && end == digits.data() + digits.size() ? std::optional<int>(value) : std::nullopt;
}

/** The number behind a sign that tells by how much to change; nothing for anything else. */
std::optional<int> changeIn(const std::string& text) {
    if (text.size() < 2 || (text.front() != '+' && text.front() != '-') || text[1] == '-') {
        return std::nullopt;
    }
    return wholeNumber(text.front() == '+' ? text.substr(1) : text);
}

Json numberFor(const Thing& thing, const std::string& text) {
    if (const std::optional<int> change = changeIn(text)) {
        const std::int64_t sum = readThing(thing).asInteger() + *change;
        return std::clamp<std::int64_t>(sum, thing.low, thing.high);
    }
    const std::optional<int> value = wholeNumber(text);
    if (!value || *value < thing.low || *value > thing.high) {
        refuse(thing, text);
    }
    return *value;
}

Json flagFor(const Thing& thing, const std::string& text) {
    static const std::vector<std::string> on{"on", "true", "yes", "1"};
    static const std::vector<std::string> off{"off", "false", "no", "0"};
    if (text == "toggle") {
        return !readThing(thing).asBoolean();
    }
    const bool isOn = std::find(on.begin(), on.end(), text) != on.end();
    if (!isOn && std::find(off.begin(), off.end(), text) == off.end()) {
        refuse(thing, text);
    }
    return isOn;
}

Json choiceFor(const Thing& thing, const std::string& text) {
    const std::vector<std::string> allowed = valueNames(thing);
    try {
        const wire::Names& names = wire::namesOf(enumerationOf(thing));
        const std::string meant = names.shortNameOf(names.valueOf(text));
        if (std::find(allowed.begin(), allowed.end(), meant) != allowed.end()) {
            return meant;
        }
    } catch (const wire::UnknownName&) { // Told of below, in the words of the thing.
    }
    refuse(thing, text);
}

Json valueFor(const Thing& thing, const std::string& text) {
    switch (thing.kind) {
    case ThingKind::Number:
        return numberFor(thing, text);
    case ThingKind::Switch:
        return flagFor(thing, text);
    case ThingKind::Choice:
        return choiceFor(thing, text);
    case ThingKind::Text:
    case ThingKind::Timing:
        break;
    }
    refuse(thing, text);
}

std::string argumentFor(const Thing& thing, const Json& value) {
    if (thing.kind == ThingKind::Choice) {
        return std::to_string(wire::namesOf(enumerationOf(thing)).valueOf(value.asText()));
    }
    return value.dump();
}

std::string timingText(const Json& timing) {
    return timing.at("width").dump() + 'x' + timing.at("height").dump() + ", " + timing.at("frameRate").dump() + " Hz" +
           (truthOf(timing.at("interlace")) ? ", interlaced" : "");
}

} // namespace

Json readThing(const Thing& thing) {
    const CallResult call = callQuietly(thing.getter, thing.getterArguments);
    Json value = thing.output.empty() ? call.result : call.outputs.at(thing.output);
    if (value.isNull()) {
        throw ServiceError("the service gives no value for " + thing.name);
    }
    if (thing.kind == ThingKind::Choice) {
        return named(thing, value);
    }
    return thing.kind == ThingKind::Switch ? truthOf(value) : value;
}

Json writeThing(const Thing& thing, const std::string& text) {
    if (thing.setter.empty()) {
        throw UsageError(thing.name + " can only be read");
    }
    Json value = valueFor(thing, text);
    std::vector<std::string> arguments = thing.setterArguments;
    std::replace(arguments.begin(), arguments.end(), std::string("%"), argumentFor(thing, value));
    callQuietly(thing.setter, arguments);
    return value;
}

std::string shownText(const Thing& thing, const Json& value) {
    if (thing.kind == ThingKind::Timing) {
        return timingText(value);
    }
    if (value.isBoolean()) {
        return value.asBoolean() ? "on" : "off";
    }
    const std::string text = value.isText() ? value.asText() : value.dump();
    return thing.unit.empty() ? text : text + ' ' + thing.unit;
}

} // namespace kelutv::tool
