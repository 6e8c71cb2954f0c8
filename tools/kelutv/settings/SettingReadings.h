#pragma once

#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/settings/Settings.h"

#include <exception>
#include <string>
#include <vector>

namespace kelutv::tool {

/** A setting with its value, or with the reason why it has none. */
struct SettingReading {
    const Setting* setting;
    /** Null when it was not read. */
    Json value;
    /** Why the service did not give it; empty also when it was not asked. */
    std::string failure;
};

/** What the television gives of several settings. */
struct SettingReadings {
    std::vector<SettingReading> all;
    /** A LinkError, when there is no service, or no more; settings from then on were not read. */
    std::exception_ptr lost;
};

SettingReadings readSettings(const std::vector<const Setting*>& settings);

/** What a setting can be, as a document: a range, a list of values, or null when it can only be read. */
Json allowedDocument(const Setting& setting);

/** `{"thing": ..., "value": ..., "meaning": ..., "allowed": ..., "unit": ..., "default": ...}`. */
Json wholeDocument(const SettingReading& reading);

/** `step ?, unit ms, default ?`; empty for what is no number. */
std::string rangeText(const Setting& setting);

} // namespace kelutv::tool
