#pragma once

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

} // namespace kelutv::simulator
