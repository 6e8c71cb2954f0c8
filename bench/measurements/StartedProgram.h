#pragma once

#include <string>
#include <vector>

namespace kelutv::bench {

/** A program that was started, told when, and has come to its end. */
class StartedProgram {
public:
    /** @param environment settings besides those of this process, as `NAME=value` */
    StartedProgram(const char* program, const std::vector<std::string>& environment);

    /** The number that it printed behind these words, which must be there. */
    double numberBehind(const std::string& words) const;

private:
    std::string mOutput;
};

} // namespace kelutv::bench
