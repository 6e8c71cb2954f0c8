#pragma once

#include "simulator/files/JsonNode.h"
#include "wire/Value.h"

namespace kelutv::simulator {

/** A list of the values in JSON. Bytes that are not UTF-8 become `{"hex": "00ff"}`, a number that JSON lacks `{"real":
 * "nan"}`.
 */
std::string jsonOf(const wire::Values& values);

/** The reverse. @throws ConfigurationError */
wire::Values readValues(const JsonNode& node);

} // namespace kelutv::simulator
