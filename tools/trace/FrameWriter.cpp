#include "tools/trace/FrameWriter.h"

#include <sys/uio.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace kelutv::trace {

FrameWriter::FrameWriter(int fd, pid_t process, pid_t thread, std::size_t total)
    : mFd(fd), mHeader{process, thread, 0, 0, static_cast<std::uint32_t>(total)} {}

void FrameWriter::append(const void* bytes, std::size_t length) {
    const auto* next = static_cast<const std::uint8_t*>(bytes);
    while (length > 0) {
        if (mHeader.length == kPieceCapacity) {
            flush();
        }
        const std::size_t taken = std::min(length, kPieceCapacity - mHeader.length);
        std::memcpy(mPiece + mHeader.length, next, taken);
        mHeader.length += static_cast<std::uint32_t>(taken);
        next += taken;
        length -= taken;
    }
}

void FrameWriter::finish() { flush(); }

void FrameWriter::flush() {
    const iovec pieces[] = {{&mHeader, sizeof(mHeader)}, {mPiece, mHeader.length}};
    while (!mFailed && ::writev(mFd, pieces, 2) < 0) {
        mFailed = errno != EINTR;
    }
    mHeader.offset += mHeader.length;
    mHeader.length = 0;
}

} // namespace kelutv::trace
