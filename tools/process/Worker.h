#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <optional>

namespace kelutv::process {

/**
 * A copy of this process that does what may have to be given up, and ends with this process at the latest.
 *
 * The copy is made by fork(2), so that this process must have one thread only.
 */
class Worker {
public:
    /** Makes the copy, which goes on from here as well: nothing is returned in it. @throws std::system_error */
    static std::optional<Worker> fork();

    /** Makes a copy that ends, as a program does, with what the work gives. @throws std::system_error */
    static Worker start(const std::function<int()>& work);

    Worker(Worker&& other) noexcept;
    Worker& operator=(Worker&& other) noexcept;
    /** Ends it with SIGKILL if it has not been waited for. */
    ~Worker();

    /** Readable when it has ended. */
    int fd() const { return mFd; }

    void kill(int signal) const;

    /** Waits for its end. @return the wait status */
    int wait();

    /** Ends it by SIGTERM, or by SIGKILL when it is there after the grace still. @return the wait status */
    int end(std::chrono::milliseconds grace);

private:
    Worker(pid_t pid, int fd) : mPid(pid), mFd(fd) {}

    pid_t mPid;
    int mFd;
};

} // namespace kelutv::process
