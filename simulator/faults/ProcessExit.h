#pragma once

#include <sys/types.h>

#include <functional>

namespace kelutv::simulator {

/** The exit code after a fault that makes the process exit. */
constexpr int kFaultExitCode = 3;

/** Acts, in a thread of its own, as soon as this thread waits for its next request, so that the one before is answered.
 */
void whenAnswered(pid_t thread, std::function<void()> act);

/** Makes the process exit as soon as the calling thread waits for its next request. */
void exitWhenAnswered();

} // namespace kelutv::simulator
