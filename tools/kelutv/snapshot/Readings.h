#pragma once

#include "wire/Function.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kelutv::tool {

/** One question to a television: an operation that only reads, with an argument in text form for each parameter. */
struct Reading {
    const wire::Function* function;
    std::vector<std::string> arguments;
};

/** What the catalogue has and cannot be asked for. */
struct Unasked {
    const wire::Function* function;
    /** The state, with `[?]` for keys that are not known; the operation where it reads none. */
    std::string state;
    std::string reason;
};

struct Readings {
    std::vector<Reading> asked;
    std::vector<Unasked> unasked;
};

/**
 * Everything that the catalogue's operations read, under all keys that its value sets give. Several readings may come
 * to the same state.
 */
Readings allReadings();

/** How an operation is named with its arguments where it reads no state: `hdmicec.getDevicePortByIndex[0]`. */
std::string readingText(const Reading& reading);

} // namespace kelutv::tool
