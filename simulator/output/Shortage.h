#pragma once

#include <chrono>
#include <new>
#include <thread>

namespace kelutv::simulator {

/**
 * Does a piece of a thread's work; false when there was no memory for it, a tenth of a second later, so that doing it
 * again does not spin. What cannot be done fails alone: the television goes on.
 */
template <typename Work> bool withMemory(const Work& work) {
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        return false;
    }
}

} // namespace kelutv::simulator
