#pragma once

namespace kqlog {

/** Tells whether a sink would take a message of this thread. */
bool sinkInstalled();

/** Hands a message to the sink; false when there is none, or when the sink itself is the one who logs. */
bool offerToSink(int priority, const char* tag, const char* text);

} // namespace kqlog
