#pragma once

namespace kelutv::test {

/** What becomes of the next message that the calling thread sends on a socket. */
enum class NextSend {
    Normal,
    /** It goes out twice. */
    Twice,
    /** Half of it goes out, and the process ends. */
    Cut,
    /** It goes out, and is kept for `sendAgain`. */
    Keep,
};

void setNextSend(NextSend fault);

/** Sends the message that was kept once more, on the same socket, and says whether that worked. */
bool sendAgain();

} // namespace kelutv::test
