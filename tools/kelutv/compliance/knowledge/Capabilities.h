#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/results/CheckResult.h"

#include <map>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** What a television has and lacks; it has what is not named. */
struct Capabilities {
    using Names = std::map<std::string, bool>;

    Names modules;
    /** Of commands and of the items that they carry: `CMD_AUDIO_GETVOLUME`. */
    Names commands;
    /** Functions with their keys: `audio.getVolume[channel=headphone]`; they are lacked by what sets them, too. */
    Names keys;
    Names events;
};

/** What of it a check is of that the television lacks, as its reason to be left out; empty when it lacks nothing. */
std::string whyLacking(const Capabilities& capabilities, const Check& check);

/** The checks, those of what the television lacks left out. */
Checks withoutLacking(const Capabilities& capabilities, Checks checks);

/**
 * What these checks of replies and events say that a television has: it lacks what it refuses to read, and events that
 * did not come. What no check came to an end of is not named.
 */
Capabilities capabilitiesFrom(const Checks& checks, const std::vector<CheckResult>& results);

/** The text of the file. */
std::string capabilitiesText(const Capabilities& capabilities);

/**
 * Reads such a text.
 *
 * @param file what messages call it
 * @throws UsageError what is wrong, where, and what is allowed
 */
Capabilities capabilitiesOf(const std::string& text, const std::string& file);

/** Those of a file, `-` for standard input; of an empty path those that lack nothing. @throws UsageError */
Capabilities capabilitiesIn(const std::string& path);

} // namespace kelutv::tool::compliance
