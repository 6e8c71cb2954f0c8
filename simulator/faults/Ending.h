#pragma once

namespace kelutv::simulator {

/** The exit code of a simulator that a fault ended. */
constexpr int kEndedByFault = 3;

/** Ends the process as soon as the calling thread waits for its next request, so that this one is answered. */
void endWhenAnswered();

} // namespace kelutv::simulator
