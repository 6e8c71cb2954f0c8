#include "tools/interposition/Tap.h"
#include "tools/trace/FrameWriter.h"
#include "tools/trace/SigpipeGuard.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace kelutv::trace {

namespace {

/** Kept from the start: programs change their environment. */
char pipePath[PATH_MAX];

/** Opened for each record, since programs close descriptors that are not theirs; -1 when nobody listens. */
int openPipe() {
    const int fd = ::open(pipePath, O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd >= 0) {
        ::fcntl(fd, F_SETFL, 0);
    }
    return fd;
}

std::int64_t nanoseconds(std::chrono::nanoseconds time) { return time.count(); }

void write(int fd, const interposition::TransactionView& transaction) {
    const RecordHeader header{nanoseconds(transaction.start.time_since_epoch()),
                              nanoseconds(transaction.duration),
                              transaction.status,
                              static_cast<std::uint32_t>(transaction.requestSize),
                              static_cast<std::uint32_t>(transaction.replySize),
                              0};
    FrameWriter writer(fd, ::getpid(), ::gettid(), sizeof(header) + transaction.requestSize + transaction.replySize);
    writer.append(&header, sizeof(header));
    writer.append(transaction.request, transaction.requestSize);
    writer.append(transaction.reply, transaction.replySize);
    writer.finish();
}

void send(const interposition::TransactionView& transaction) {
    const int before = errno;
    const int fd = openPipe();
    if (fd >= 0) {
        const SigpipeGuard quiet;
        write(fd, transaction);
        ::close(fd);
    }
    errno = before;
}

[[gnu::constructor]] void start() {
    const char* const path = std::getenv(kPipeVariable);
    const std::size_t size = path != nullptr ? std::strlen(path) + 1 : 0;
    if (size > 1 && size <= sizeof(pipePath)) {
        std::memcpy(pipePath, path, size);
        interposition::setObserver(send);
    }
}

} // namespace

} // namespace kelutv::trace
