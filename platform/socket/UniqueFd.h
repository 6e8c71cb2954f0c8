#pragma once

#include <utility>

namespace kq {

/**
 * Closes a descriptor, the runtime's own or another.
 *
 * Does nothing in a forked child: what the runtime had open was closed by the fork, and the number may belong to a file
 * of the child's own.
 */
void closeDescriptor(int fd);

/** Owns one file descriptor. */
class UniqueFd {
public:
    UniqueFd() = default;
    explicit UniqueFd(int fd) : mFd(fd) {}
    UniqueFd(UniqueFd&& other) noexcept : mFd(other.release()) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept {
        UniqueFd taken(std::move(other));
        std::swap(mFd, taken.mFd);
        return *this;
    }
    UniqueFd(const UniqueFd&) = delete;
    UniqueFd& operator=(const UniqueFd&) = delete;
    ~UniqueFd() {
        if (mFd >= 0) {
            closeDescriptor(mFd);
        }
    }

    int get() const { return mFd; }
    int release() { return std::exchange(mFd, -1); }
    explicit operator bool() const { return mFd >= 0; }

private:
    int mFd = -1;
};

} // namespace kq
