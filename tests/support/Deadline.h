#pragma once

#include <chrono>
#include <thread>

namespace kelutv::test {

constexpr std::chrono::milliseconds kPatience{10000};

/**
 * Looks at a condition again and again until it holds or the time is over.
 *
 * @return whether the condition came to hold.
 */
template <typename Condition> bool eventually(Condition holds, std::chrono::milliseconds patience = kPatience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!holds()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

} // namespace kelutv::test
