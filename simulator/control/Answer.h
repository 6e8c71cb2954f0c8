#pragma once

#include <string>

namespace kelutv::simulator {

/** What a line of the control channel gave: data of any number of lines, or what is wrong with it. */
struct Answer {
    bool ok = true;
    std::string text;
};

} // namespace kelutv::simulator
