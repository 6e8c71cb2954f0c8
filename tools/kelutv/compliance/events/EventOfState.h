#pragma once

#include <string>

namespace kelutv::tool::compliance {

/**
 * The name of the event that tells of a change of the state, `volumeChanged` of `audio.volume`, in any case of letters;
 * empty where it has none. A table of events need not have it.
 */
std::string eventNameOf(const std::string& state);

} // namespace kelutv::tool::compliance
