#pragma once

#include <sys/types.h>

#include <functional>

namespace kelutv::bench {

/** A copy of this process that runs one function; it ends with this object, or with the thread that made it. */
class Child {
public:
    explicit Child(const std::function<void()>& run);
    Child(Child&& other) noexcept;
    Child& operator=(Child&&) = delete;
    ~Child();

    pid_t process() const { return mProcess; }
    /** Waits until it ends: its status as waitpid(2) has it. */
    int wait();

private:
    pid_t mProcess = -1;
};

/** Runs a function in a copy of this process, and gives up unless it comes to its end. */
void runApart(const std::function<void()>& run);

} // namespace kelutv::bench
