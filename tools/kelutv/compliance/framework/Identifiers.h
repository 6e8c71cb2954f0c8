#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/snapshot/Readings.h"
#include "wire/Function.h"

#include <string>

namespace kelutv::tool::compliance {

/** `audio.getVolume[channel=speaker]`: the function with its arguments, enumerators by their short names. */
std::string identifierOf(const Reading& reading);

/** That of a check: `form.audio.getVolume[channel=speaker].terminated`. */
Subject subjectOf(const std::string& family, const Reading& reading, const std::string& aspect,
                  const std::string& sentence);

/** That of a check of a function under no keys: `refusal.audio.setVolume.truncated`. */
Subject subjectOf(const std::string& family, const wire::Function& function, const std::string& aspect,
                  const std::string& sentence);

} // namespace kelutv::tool::compliance
