#pragma once

#include <sys/types.h>

#include <cstddef>

namespace kelutv::test {

/** How much of the memory that a process holds is its own, in KiB. Throws when it is gone. */
std::size_t memoryOf(pid_t process);

} // namespace kelutv::test
