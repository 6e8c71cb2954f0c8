#pragma once

#include "support/Wire.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace kelutv::test {

/** What an operation gave its caller, as text. Takes no memory, so that it works where there is none. */
class Outcome {
public:
    /** Adds to the text as printf does. */
    __attribute__((__format__(printf, 2, 3))) void add(const char* format, ...);

    const char* text() const { return mText.data(); }

private:
    std::array<char, 2048> mText{};
    std::size_t mLength = 0;
};

/** One command on the wire: what the library must send, and what a service answers. */
struct Exchange {
    Bytes request;
    Bytes reply;
};

/** One operation of the interface with fixed arguments. */
struct Operation {
    const char* name;
    /** The commands that it sends. */
    std::vector<Exchange> exchanges;
    std::function<void(Outcome& outcome)> call;
    /** What it gives when each command is answered. */
    std::string right;
    /** What it gives when none of its commands is answered, then what it may give when only some are. */
    std::vector<std::string> failures;
};

} // namespace kelutv::test
