#include "tools/trace/FrameWriter.h"

#include <poll.h>
#include <sys/uio.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace kelutv::trace {

FrameWriter::FrameWriter(int fd, pid_t process, pid_t thread, std::size_t total, int patience)
    : mFd(fd), mPatience(patience), mHeader{process, thread, 0, 0, static_cast<std::uint32_t>(total)} {}

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

bool FrameWriter::finish() {
    flush();
    return !mFailed;
}

void FrameWriter::flush() {
    const iovec pieces[] = {{&mHeader, sizeof(mHeader)}, {mPiece, mHeader.length}};
    while (!mFailed && ::writev(mFd, pieces, 2) < 0) {
        mFailed = errno != EINTR && (errno != EAGAIN || !waitForRoom());
    }
    mHeader.offset += mHeader.length;
    mHeader.length = 0;
}

bool FrameWriter::waitForRoom() const {
    pollfd room{mFd, POLLOUT, 0};
    return ::poll(&room, 1, mPatience) == 1;
}

} // namespace kelutv::trace
