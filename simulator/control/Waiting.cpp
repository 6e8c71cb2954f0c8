#include "simulator/control/Waiting.h"

#include <cerrno>

namespace kelutv::simulator {

bool waitForAny(pollfd* waits, std::size_t count, int milliseconds) {
    constexpr int kPauseMs = 100;
    if (::poll(waits, count, milliseconds) >= 0) {
        return true;
    }
    if (errno != EINTR) {
        ::poll(nullptr, 0, kPauseMs);
    }
    return false;
}

} // namespace kelutv::simulator
