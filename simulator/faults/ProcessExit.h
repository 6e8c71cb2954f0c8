#pragma once

namespace kelutv::simulator {

/** The exit code after a fault that makes the process exit. */
constexpr int kFaultExitCode = 3;

/** Makes the process exit as soon as the calling thread waits for its next request, so that this one is answered. */
void exitWhenAnswered();

} // namespace kelutv::simulator
