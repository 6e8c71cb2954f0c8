#include "tools/trace/Channel.h"

#include "tools/trace/FrameWriter.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

namespace kelutv::trace {

RecordHeader recordOfNow(RecordKind kind, std::int32_t value) {
    return {nanoseconds(std::chrono::system_clock::now().time_since_epoch()),
            nanoseconds(std::chrono::steady_clock::now().time_since_epoch()),
            0,
            value,
            0,
            0,
            kind};
}

bool Channel::open(const char* pipe) {
    const std::size_t size = std::strlen(pipe) + 1;
    if (size > sizeof(mPath)) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::memcpy(mPath, pipe, size);
    return mapNotes();
}

bool Channel::wants(RecordKind kind) const {
    return mNotes != nullptr && (mNotes->wanted & static_cast<std::uint32_t>(kind)) != 0;
}

void Channel::send(RecordHeader header, const RecordBytes& bytes) {
    if (!wants(header.kind)) {
        return;
    }
    const int before = errno;
    header.requestSize = static_cast<std::uint32_t>(bytes.requestSize);
    header.replySize = static_cast<std::uint32_t>(bytes.replySize);
    // Opened for each record, since programs close descriptors that are not theirs. A pipe that is open for reading
    // here is never broken: a program whose tool has gone gets no SIGPIPE.
    const int fd = openPipe();
    bool isSent = false;
    if (fd >= 0) {
        isSent = write(fd, header, bytes);
        mIsStuck = !isSent;
        ::close(fd);
    }
    if (!isSent && header.kind != RecordKind::Process) {
        ++mNotes->leftOut;
    }
    errno = before;
}

/** It may be out of the way for a moment, and come back for this program. */
int Channel::openPipe() const {
    constexpr int kFlags = O_RDWR | O_NONBLOCK | O_CLOEXEC;
    const int fd = ::open(mPath, kFlags);
    if (fd >= 0 || errno != ENOENT) {
        return fd;
    }
    const int hidden = ::open((std::string(mPath) + kEndingSuffix).c_str(), kFlags);
    return hidden >= 0 || errno != ENOENT ? hidden : ::open(mPath, kFlags);
}

/** Mapped for as long as the program runs, in its children, too. */
bool Channel::mapNotes() {
    const int fd = ::open((std::string(mPath) + kNotesSuffix).c_str(), O_RDWR | O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    void* const memory = ::mmap(nullptr, sizeof(Notes), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    ::close(fd);
    mNotes = memory != MAP_FAILED ? static_cast<Notes*>(memory) : nullptr;
    return mNotes != nullptr;
}

bool Channel::write(int fd, const RecordHeader& header, const RecordBytes& bytes) const {
    FrameWriter writer(fd, ::getpid(), ::gettid(), sizeof(header) + bytes.requestSize + bytes.replySize,
                       mIsStuck ? 0 : mNotes->patience.load());
    writer.append(&header, sizeof(header));
    writer.append(bytes.request, bytes.requestSize);
    writer.append(bytes.reply, bytes.replySize);
    return writer.finish();
}

} // namespace kelutv::trace
