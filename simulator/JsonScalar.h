#pragma once

#include "JsonNode.h"
#include "Scalar.h"

namespace simulator {

/** A list of scalars. Bytes that are no UTF-8 become `{"hex": "00ff"}`, a number that JSON lacks `{"real": "nan"}`. */
nlohmann::json toJson(const Scalars& scalars);

/** The reverse. @throws ConfigurationError */
Scalars readScalars(const JsonNode& node);

} // namespace simulator
