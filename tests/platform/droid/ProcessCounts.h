#pragma once

#include <sys/types.h>

#include <cstddef>
#include <ostream>

namespace kelutv::test {

/** What a process holds that it must give back. Not so the threads that the kernel's binder driver has asked for. */
struct ProcessCounts {
    std::size_t descriptors = 0;
    std::size_t threads = 0;
};

bool operator==(const ProcessCounts& a, const ProcessCounts& b);
std::ostream& operator<<(std::ostream& out, const ProcessCounts& counts);

ProcessCounts countsOf(pid_t process);

/** Waits until the process holds no more than that: threads end a little after what they served. */
bool fallsTo(const ProcessCounts& limit, pid_t process);

/** The counts once they have stood still for some looks. */
ProcessCounts settledCountsOf(pid_t process);

} // namespace kelutv::test
