#pragma once

#include <sys/types.h>

namespace kelutv::bench {

/** Where the two sides of a measurement run. */
enum class Pinning { SameCore, TwoCores };

/** The caller's side: this process, all its threads. */
void pinCaller(Pinning pinning);
/** The answering side: another process, all its threads. */
void pinAnswerer(pid_t process, Pinning pinning);

} // namespace kelutv::bench
