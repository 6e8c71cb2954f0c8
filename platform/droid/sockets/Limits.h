#pragma once

#include <chrono>
#include <cstddef>

namespace android {

/** The calls that a server answers at the same time, each on a thread of its own. */
constexpr size_t kMostCalls = 1024;
/** Of these, those of one process. */
constexpr size_t kMostCallsOfAPeer = kMostCalls / 4;
/** Of the descriptors that a process may have, those that its server leaves to the program. */
constexpr size_t kReservedDescriptors = 128;
/** What requests that are larger than one packet may take of a server's memory at the same time. */
constexpr size_t kMostLargeBytes = 64 * 1024 * 1024;

/** How long a call waits for a thread when the system gives none. */
constexpr std::chrono::milliseconds kThreadPatience{100};
/** How long a thread waits for the next call on the connection that it has just served. */
constexpr std::chrono::milliseconds kLinger{20};
/** With so many calls, one upon the other, a connection gets a thread that waits for the next one for as long as it
 * takes. */
constexpr size_t kCallsToKeepThread = 100;
/** The most threads that wait so. */
constexpr size_t kMostKeptThreads = 4;
/** How long a thread without a connection stays; one always does. */
constexpr std::chrono::milliseconds kIdleThread{200};
/** How long the rest of a message may be on its way. */
constexpr std::chrono::seconds kMessagePatience{5};
/** How long a one-way call waits for a service that does not read. */
constexpr std::chrono::seconds kOneWayPatience{1};

} // namespace android
