#pragma once

#include <string>

namespace kelutv::simulator {

/** The answer to a line of the control channel: data of any number of lines, or what is wrong with the line. */
struct Answer {
    bool ok = true;
    std::string text;
};

} // namespace kelutv::simulator
