#pragma once

#include "tools/kelutv/output/Json.h"
#include "wire/Enumeration.h"

namespace kelutv::tool {

/**
 * A value as it stands by itself in every document: a number of an enumeration as
 * `{"value": 9, "enumerator": "KELU_TV_SRC_HDMI1"}`, the enumerator null for a number without a name; a list with each
 * of its entries so; anything else as it is.
 *
 * @param names of the value; null when it has none
 */
Json valueDocument(const Json& value, const wire::Enumeration* names);

/** Adds `value` to a document that says what the value is of, and `enumerator` beside it for a number of an
 * enumeration.
 */
void addValue(Json& document, const Json& value, const wire::Enumeration* names);

/** Every value that has a name, in the order of the enumeration, without those that only mark its end. */
Json valuesDocument(const wire::Enumeration& names);

} // namespace kelutv::tool
