#include "Descriptors.h"

#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <mutex>

namespace kq {

namespace {

constexpr int kFirstUsable = 3;
constexpr size_t kBitsInWord = sizeof(unsigned long) * CHAR_BIT;
// As many descriptors as Linux lets a process have unless it was told otherwise.
constexpr size_t kMostDescriptors = 1024 * 1024;

} // namespace

/**
 * The runtime's open descriptors: what a fork has to close.
 *
 * It must be readable in a child that was forked while any lock was held, and closing must not need memory.
 */
struct DescriptorTable {
    // Held by a thread that forks, and while a descriptor is opened or closed.
    std::mutex mutex;
    std::array<unsigned long, kMostDescriptors / kBitsInWord> words;
    size_t used;
    bool forksAreSeen;

    static unsigned long bit(int fd) { return 1UL << (static_cast<size_t>(fd) % kBitsInWord); }

    void add(int fd) {
        const size_t word = static_cast<size_t>(fd) / kBitsInWord;
        words[word] |= bit(fd);
        used = std::max(used, word + 1);
    }

    void remove(int fd) {
        if (static_cast<size_t>(fd) < kMostDescriptors) {
            words[static_cast<size_t>(fd) / kBitsInWord] &= ~bit(fd);
        }
    }

    /** Async-signal-safe. */
    void closeAll() {
        for (size_t word = 0; word < used; ++word) {
            for (; words[word] != 0; words[word] &= words[word] - 1) {
                ::close(static_cast<int>(word * kBitsInWord) + __builtin_ctzl(words[word]));
            }
        }
    }
};

// One for all libraries of the process that contain this code.
[[gnu::visibility("default")]] inline DescriptorTable gDescriptors{};

namespace {

void beforeFork() { gDescriptors.mutex.lock(); }

void afterForkInParent() { gDescriptors.mutex.unlock(); }

void afterForkInChild() {
    gForkedChild.store(true, std::memory_order_relaxed);
    gDescriptors.closeAll();
    gDescriptors.mutex.unlock();
}

UniqueFd failed(int error) {
    errno = error;
    return UniqueFd();
}

/** A duplicate that is no standard descriptor; `fd` is closed. Negative on failure. */
int movedUp(int fd) {
    const int moved = ::fcntl(fd, F_DUPFD_CLOEXEC, kFirstUsable);
    const int error = errno;
    ::close(fd);
    errno = error;
    return moved;
}

/** With the lock held. */
bool seeForks() {
    if (!gDescriptors.forksAreSeen) {
        gDescriptors.forksAreSeen = ::pthread_atfork(beforeFork, afterForkInParent, afterForkInChild) == 0;
    }
    return gDescriptors.forksAreSeen;
}

} // namespace

bool watchForks() {
    const std::lock_guard<std::mutex> lock(gDescriptors.mutex);
    return seeForks();
}

[[gnu::cold]] void endProcessQuietly() { ::_exit(EXIT_SUCCESS); }

OpeningScope::OpeningScope() {
    gDescriptors.mutex.lock();
    mUsable = seeForks() && !inForkedChild();
    if (!mUsable) {
        errno = inForkedChild() ? EPERM : ENOMEM;
    }
}

OpeningScope::~OpeningScope() { gDescriptors.mutex.unlock(); }

bool OpeningScope::usable() const { return mUsable; }

UniqueFd OpeningScope::adopt(int fd) const {
    if (fd >= 0 && fd < kFirstUsable) {
        fd = movedUp(fd);
    }
    if (fd >= 0 && static_cast<size_t>(fd) >= kMostDescriptors) {
        ::close(fd);
        return failed(EMFILE);
    }
    if (fd >= 0) {
        gDescriptors.add(fd);
    }
    return UniqueFd(fd);
}

void closeDescriptor(int fd) {
    if (inForkedChild()) {
        return;
    }
    const std::lock_guard<std::mutex> lock(gDescriptors.mutex);
    gDescriptors.remove(fd);
    ::close(fd);
}

} // namespace kq
