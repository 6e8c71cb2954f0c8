#pragma once

#include "tools/trace/Frame.h"

#include <sys/types.h>

namespace kelutv::trace {

/**
 * Puts one record into frames and writes them to a descriptor. Needs no memory but its own.
 *
 * Nothing more is written after the first failure.
 */
class FrameWriter {
public:
    /** @param patience how many milliseconds to wait for room in a descriptor that does not block */
    FrameWriter(int fd, pid_t process, pid_t thread, std::size_t total, int patience = 0);

    void append(const void* bytes, std::size_t length);

    /** Writes what is left. @return whether everything was written */
    bool finish();

private:
    void flush();
    bool waitForRoom() const;

    int mFd;
    int mPatience;
    FrameHeader mHeader;
    bool mFailed = false;
    std::uint8_t mPiece[kPieceCapacity];
};

} // namespace kelutv::trace
