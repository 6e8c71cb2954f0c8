#pragma once

#include <termios.h>

#include <optional>

namespace kelutv::tool {

/** How the terminal at standard input was set when this was made. */
class TerminalState {
public:
    TerminalState();

    /** Sets it so again; does nothing without a terminal, or when another program has it. */
    void restore() const;

private:
    std::optional<termios> mState;
};

} // namespace kelutv::tool
