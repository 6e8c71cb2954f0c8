#pragma once

#include "torture/operations/Operation.h"

#include <array>
#include <atomic>

namespace kelutv::test {

/** What the calls of a client gave, kept where the test can read it after the client's end. Takes no memory. */
struct CallNotes {
    std::atomic<int> right{0};
    std::atomic<int> failed{0};
    std::atomic<int> wrong{0};
    /** The first that was wrong, in words. */
    std::array<char, 512> firstWrong{};

    void note(const Operation& operation, const Outcome& outcome);
    void noteWrong(const char* what, const char* found);
};

} // namespace kelutv::test
