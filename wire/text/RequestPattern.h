#pragma once

#include "wire/codec/Request.h"
#include "wire/text/Pattern.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::wire {

/** Which requests are meant: `CMD_AUDIO_*`, `CMDID_AUDIO_GET_MAX_VOLUME`, `getvolume`, `0x2008` or `any`. */
class RequestPattern {
public:
    /**
     * @param word `any`, the number of a command, or a `Pattern` of the names of commands and items
     * @throws UnknownName when no command and no item is meant, with the nearest name
     */
    explicit RequestPattern(const std::string& word);

    /** `any` alone means requests that cannot be read as well. */
    bool matches(const Request& request) const;

    /** Every name that can stand for requests: of commands, and of the items that they carry. */
    static std::vector<std::string> names();

private:
    bool mIsAny;
    std::optional<std::int32_t> mNumber;
    Pattern mPattern;
};

} // namespace kelutv::wire
