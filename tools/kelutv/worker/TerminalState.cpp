#include "tools/kelutv/worker/TerminalState.h"

#include <unistd.h>

namespace kelutv::tool {

TerminalState::TerminalState() {
    termios state{};
    if (::tcgetattr(STDIN_FILENO, &state) == 0) {
        mState = state;
    }
}

void TerminalState::restore() const {
    if (mState && ::tcgetpgrp(STDIN_FILENO) == ::getpgrp()) {
        ::tcsetattr(STDIN_FILENO, TCSANOW, &*mState);
    }
}

} // namespace kelutv::tool
