#pragma once

#include <string>

namespace kelutv::simulator {

/** Gets ready for messages, which needs a thread. @throws std::system_error when there is none */
void startComplaints();

/** Puts a message on standard error, with the name of the program before it. Never waits. */
void complain(const std::string& message);

/** Waits until all messages are written, but not for a reader that takes nothing. */
void flushComplaints();

} // namespace kelutv::simulator
