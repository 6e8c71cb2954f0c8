#pragma once

#include "tools/trace/Frame.h"

#include <atomic>
#include <chrono>
#include <climits>
#include <cstddef>
#include <cstdint>

namespace kelutv::trace {

/** What follows the header of a record. */
struct RecordBytes {
    const void* request;
    std::size_t requestSize;
    const void* reply;
    std::size_t replySize;
};

constexpr std::int64_t nanoseconds(std::chrono::nanoseconds time) { return time.count(); }

/** The header of what happens now and takes no time. */
RecordHeader recordOfNow(RecordKind kind, std::int32_t value);

/** The way from this process to one tool. Several threads may use it at once. Has no end, as the program's threads may
 * go on to the last. */
class Channel {
public:
    /** @return false when there is no such pipe, with the reason in `errno` */
    bool open(const char* pipe);

    bool wants(RecordKind kind) const;

    /** Writes the record, or counts it where there is no room or no way to the pipe; `errno` stays as it is. */
    void send(RecordHeader header, const RecordBytes& bytes);

private:
    bool mapNotes();
    int openPipe() const;
    bool write(int fd, const RecordHeader& header, const RecordBytes& bytes) const;

    /** Kept from the start: programs change their environment. */
    char mPath[PATH_MAX];
    Notes* mNotes;
    std::atomic<bool> mIsStuck;
};

} // namespace kelutv::trace
