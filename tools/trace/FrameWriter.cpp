#include "tools/trace/FrameWriter.h"

#include <sys/uio.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace kelutv::trace {

FrameWriter::FrameWriter(int fd, pid_t process, pid_t thread, std::size_t total)
    : mFd(fd), mHead{process, thread, 0, 0, static_cast<std::uint32_t>(total)} {}

void FrameWriter::append(const void* bytes, std::size_t length) {
    const auto* next = static_cast<const std::uint8_t*>(bytes);
    while (length > 0) {
        if (mHead.length == kPieceCapacity) {
            flush();
        }
        const std::size_t taken = std::min(length, kPieceCapacity - mHead.length);
        std::memcpy(mPiece + mHead.length, next, taken);
        mHead.length += static_cast<std::uint32_t>(taken);
        next += taken;
        length -= taken;
    }
}

void FrameWriter::finish() { flush(); }

void FrameWriter::flush() {
    const iovec pieces[] = {{&mHead, sizeof(mHead)}, {mPiece, mHead.length}};
    while (!mFailed && ::writev(mFd, pieces, 2) < 0) {
        mFailed = errno != EINTR;
    }
    mHead.offset += mHead.length;
    mHead.length = 0;
}

} // namespace kelutv::trace
