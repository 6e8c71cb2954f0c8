#pragma once

#include "simulator/screen/UiKeys.h"

#include <functional>
#include <thread>

namespace kelutv::simulator {

/** Reads the keys of a terminal, in a thread of its own, until the terminal or the object ends. */
class UiKeyboard {
public:
    using Taker = std::function<void(const UiKey& key)>;

    UiKeyboard(int terminal, Taker taker);
    ~UiKeyboard();
    UiKeyboard(const UiKeyboard&) = delete;
    UiKeyboard& operator=(const UiKeyboard&) = delete;

    /** Whether it can be read at all: not one that is only written to. */
    static bool canRead(int terminal);

private:
    void read();
    /** False at the end of the terminal. */
    bool takeKeys();

    const int mTerminal;
    const Taker mTaker;
    const int mStop;
    std::thread mThread;
};

} // namespace kelutv::simulator
