#pragma once

#include <sys/types.h>

#include <set>

namespace kelutv::simulator {

/** The exit code after a fault that makes the process exit. */
constexpr int kFaultExitCode = 3;

/** Waits until these threads of the process wait for their next request, so that those before are answered; two seconds
 * at most. */
void waitUntilIdle(const std::set<pid_t>& threads);

/** Makes the process exit as soon as the calling thread waits for its next request. */
void exitWhenAnswered();

} // namespace kelutv::simulator
