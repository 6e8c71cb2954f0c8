#pragma once

#include "tools/kelutv/output/Output.h"
#include "tools/kelutv/settings/Settings.h"

#include <string>

namespace kelutv::tool {

/**
 * Reads a setting: a number, a flag, the short name of a choice (its number when it has no name), a text, or the record
 * of a timing.
 *
 * @throws LinkError, ServiceError
 */
Json readSetting(const Setting& setting);

/**
 * Sets a setting to what is written and gives that value in the form that `readSetting` gives it.
 *
 * "+5" and "-5" change a number by so much, no further than its range; "toggle" turns a switch round.
 *
 * @throws UsageError when it is not allowed, nothing is set then; LinkError, ServiceError
 */
Json writeSetting(const Setting& setting, const std::string& text);

/** The value as documents have it: that of a choice as number and name. */
Json valueDocument(const Setting& setting, const Json& value);

/** `{"thing": "source", "value": 10, "enumerator": "KELU_TV_SRC_HDMI2"}`. */
Json documentOf(const Setting& setting, const Json& value);

/** The value as a person reads it: `35`, `on`, `hdmi2`, `3840x2160, 60 Hz`. */
std::string shownText(const Setting& setting, const Json& value);

} // namespace kelutv::tool
