#pragma once

#include "wire/codec/Request.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kelutv::simulator {

/** Which requests are meant: `CMD_AUDIO_*`, `CMDID_AUDIO_GET_MAX_VOLUME`, `0x2008` or `any`. */
class RequestPattern {
public:
    /** @throws std::invalid_argument when no command and no item is meant, with the nearest name */
    explicit RequestPattern(const std::string& word);

    bool matches(const wire::Request& request) const;

private:
    /** With `*` for any characters. */
    std::string mName;
    std::optional<std::int32_t> mNumber;
};

} // namespace kelutv::simulator
