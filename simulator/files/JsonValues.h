#pragma once

#include "simulator/files/JsonNode.h"
#include "wire/Value.h"

#include <string>

namespace kelutv::simulator {

/** Whether a string of JSON can hold the text. */
bool isUtf8(const std::string& text);

/** A list of the values. Bytes that are not UTF-8 become `{"hex": "00ff"}`, a number that JSON lacks `{"real": "nan"}`.
 */
nlohmann::json toJson(const wire::Values& values);

/** The reverse. @throws ConfigurationError */
wire::Values readValues(const JsonNode& node);

} // namespace kelutv::simulator
