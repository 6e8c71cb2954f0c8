#pragma once

#include "simulator/Simulator.h"

#include <string>

namespace kelutv::test {

/** A named pipe whose lines a simulator obeys, started with `--control` and its path. */
class ControlPipe {
public:
    explicit ControlPipe(std::string path);

    const std::string& path() const { return mPath; }

    /** Has a line carried out; gives what the simulator says against it, empty when nothing. */
    std::string say(Simulator& simulator, const std::string& line);

private:
    const std::string mPath;
    int mLines = 0;
};

} // namespace kelutv::test
