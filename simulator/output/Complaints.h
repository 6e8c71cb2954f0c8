#pragma once

#include <string>

namespace kelutv::simulator {

/** Puts a message on standard error, with the name of the program before it. Never waits. */
void complain(const std::string& message);

/** Waits until all messages are written, but not for a reader that takes nothing. */
void flushComplaints();

} // namespace kelutv::simulator
