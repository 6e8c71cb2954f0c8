#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** An event that is to be published. */
struct Notice {
    unsigned int event;
    std::string payload;
    /** What the trace says of it, behind its identifier. */
    std::string text;
};

using Notices = std::vector<Notice>;

/** A row of int32 words as they stand in a payload. */
std::string payloadOf(std::initializer_list<std::int32_t> words);

} // namespace kelutv::simulator
