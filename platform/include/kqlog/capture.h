#pragma once

/**
 * @file
 * Capture of the platform log, for tests: a sink takes the messages in place of standard error.
 */

namespace kqlog {

#pragma GCC visibility push(default)

/** Receives the messages of the platform log while it is installed. */
class Sink {
public:
    virtual ~Sink() = default;

    /**
     * Takes one message. Runs on the thread that logs, possibly on several at once; must not throw and must not call
     * `installSink` or `removeSink`. What it logs itself goes to standard error.
     * @param priority as passed by the caller
     * @param tag the caller's own pointer, null when it passed null
     * @param text the formatted text with any line end it has; never null; valid during the call
     */
    virtual void write(int priority, const char* tag, const char* text) = 0;
};

/**
 * Installs the process's one sink in place of any earlier one. From then on it gets every message, whatever
 * KQLOG_LEVEL says, and nothing goes to standard error. On return no call of an earlier sink is running.
 * @param sink stays the caller's; must live until it is removed or replaced
 */
void installSink(Sink* sink);

/** Goes back to standard error. On return no call of the sink is running, so it may be destroyed. */
void removeSink();

#pragma GCC visibility pop

} // namespace kqlog
