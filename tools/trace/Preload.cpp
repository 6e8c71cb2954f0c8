#include "tools/interposition/Tap.h"
#include "tools/trace/FrameWriter.h"
#include "tools/trace/SigpipeGuard.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

namespace kelutv::trace {

namespace {

/** Kept from the start: programs change their environment. */
char pipePath[PATH_MAX];

/** How long a program waits for a tool that reads slowly; for one that does not read, once. */
constexpr int kPatienceMs = 200;

LeftOut* leftOut = nullptr;
std::atomic<bool> isStuck{false};

/** Opened for each record, since programs close descriptors that are not theirs; -1 when nobody listens. */
int openPipe() { return ::open(pipePath, O_WRONLY | O_NONBLOCK | O_CLOEXEC); }

std::int64_t nanoseconds(std::chrono::nanoseconds time) { return time.count(); }

bool write(int fd, const interposition::TransactionView& transaction) {
    const RecordHeader header{nanoseconds(transaction.start.time_since_epoch()),
                              nanoseconds(transaction.duration),
                              transaction.status,
                              static_cast<std::uint32_t>(transaction.requestSize),
                              static_cast<std::uint32_t>(transaction.replySize),
                              0};
    FrameWriter writer(fd, ::getpid(), ::gettid(), sizeof(header) + transaction.requestSize + transaction.replySize,
                       isStuck ? 0 : kPatienceMs);
    writer.append(&header, sizeof(header));
    writer.append(transaction.request, transaction.requestSize);
    writer.append(transaction.reply, transaction.replySize);
    return writer.finish();
}

void send(const interposition::TransactionView& transaction) {
    const int before = errno;
    const int fd = openPipe();
    if (fd >= 0) {
        const SigpipeGuard quiet;
        isStuck = !write(fd, transaction);
        if (isStuck && leftOut != nullptr) {
            ++*leftOut;
        }
        ::close(fd);
    }
    errno = before;
}

/** Mapped for as long as the program runs, in its children, too. */
LeftOut* mapLeftOut(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (fd < 0) {
        return nullptr;
    }
    void* const memory = ::mmap(nullptr, sizeof(LeftOut), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    ::close(fd);
    return memory != MAP_FAILED ? static_cast<LeftOut*>(memory) : nullptr;
}

[[gnu::constructor]] void start() {
    const char* const path = std::getenv(kPipeVariable);
    const std::size_t size = path != nullptr ? std::strlen(path) + 1 : 0;
    if (size > 1 && size <= sizeof(pipePath)) {
        std::memcpy(pipePath, path, size);
        leftOut = mapLeftOut(std::string(path) + kLeftOutSuffix);
        interposition::setObserver(send);
    }
}

} // namespace

} // namespace kelutv::trace
