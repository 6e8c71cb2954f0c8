#include "tools/kelutv/settings/SettingReadings.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/settings/SettingValue.h"
#include "tools/kelutv/text/AllowedValues.h"
#include "tools/kelutv/text/EnumeratedValue.h"
#include "tools/kelutv/text/Ranges.h"

namespace kelutv::tool {

namespace {

/** What the catalogue knows of the number, between the ends that the setting has. */
wire::Range rangeOf(const Setting& setting) {
    const wire::Range* const known = typeOf(setting).range;
    wire::Range range = known != nullptr ? *known : wire::Range{{}, {}, {}, {}, nullptr};
    if (!setting.setter.empty()) {
        range.least = setting.low;
        range.greatest = setting.high;
    }
    if (range.unit == nullptr && !setting.unit.empty()) {
        range.unit = setting.unit.c_str();
    }
    return range;
}

SettingReading readOne(const Setting& setting) {
    try {
        return {&setting, readSetting(setting), ""};
    } catch (const ServiceError& error) {
        return {&setting, nullptr, error.what()};
    }
}

} // namespace

SettingReadings readSettings(const std::vector<const Setting*>& settings) {
    SettingReadings readings;
    for (const Setting* const setting : settings) {
        if (!readings.lost) {
            try {
                readings.all.push_back(readOne(*setting));
                continue;
            } catch (const LinkError&) {
                readings.lost = std::current_exception();
            }
        }
        readings.all.push_back({setting, nullptr, ""});
    }
    return readings;
}

Json allowedDocument(const Setting& setting) {
    if (setting.setter.empty()) {
        return nullptr;
    }
    switch (setting.kind) {
    case SettingKind::Number: {
        const wire::Range range = rangeOf(setting);
        return rangeDocument(*range.least, *range.greatest, range.step ? Json(*range.step) : Json());
    }
    case SettingKind::Switch:
        return Json::array({false, true});
    case SettingKind::Choice:
        return valuesDocument(enumerationOf(setting));
    case SettingKind::Text:
    case SettingKind::Timing:
        break;
    }
    return nullptr;
}

Json wholeDocument(const SettingReading& reading) {
    const Setting& setting = *reading.setting;
    Json document = documentOf(setting, reading.value);
    if (!reading.failure.empty()) {
        document["unreadable"] = reading.failure;
    }
    document["meaning"] = setting.meaning;
    document["allowed"] = allowedDocument(setting);
    const wire::Range range = rangeOf(setting);
    document["unit"] = range.unit != nullptr ? Json(range.unit) : Json();
    document["default"] = range.initial ? Json(*range.initial) : Json();
    return document;
}

std::string rangeText(const Setting& setting) {
    return setting.kind == SettingKind::Number ? rangeText(rangeOf(setting)) : "";
}

} // namespace kelutv::tool
