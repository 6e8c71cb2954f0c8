#pragma once

#include "tools/kelutv/output/Json.h"

#include <string>

namespace kelutv::tool {

/**
 * The document of an answer of the simulator with data: `ok`, its `lines`, and what the lines say of `sources`,
 * `cecDevices` with `cecPlaying`, `power`, `states` with what is `initial` under other keys, and `faults`.
 */
Json simDocument(const std::string& text);

/** The document of a help text, of one verb or of all when the name is empty: `ok`, `lines` and `verbs`. */
Json simHelpDocument(const std::string& verb);

/** The document of a line that is refused. */
Json simRefusalDocument(const std::string& complaint);

} // namespace kelutv::tool
