#pragma once

#include "tools/kelutv/output/Json.h"
#include "wire/Interface.h"

#include <string>

namespace kelutv::tool {

/** A state with the indexes under which it is kept: `audio.volume[speaker]`, `audio.soundMode`. */
std::string stateText(const wire::StateKey& key, const wire::Values& indexes);

/** The text without the indexes. */
std::string nameWithoutKeys(const std::string& text);

/** The state that such a text begins with; null when it is none of the catalogue's. */
const wire::StateKey* stateNamedIn(const std::string& text);

/** A number or a text; a text that is not UTF-8 as `{"hex": "00ff"}`, a number that JSON lacks as `{"real": "nan"}`. */
Json documentOf(const wire::Value& value);

/** A list of them. */
Json documentOf(const wire::Values& values);

/** The values of a state for a person: `35`, `9 (hdmi1)`, `[1, 2, 3]`. */
std::string valuesText(const std::string& state, const Json& values);

/** The same, `(missing)` for null. */
std::string heldText(const std::string& state, const Json& values);

} // namespace kelutv::tool
