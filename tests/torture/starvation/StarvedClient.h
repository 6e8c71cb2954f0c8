#pragma once

#include "torture/processes/CallNotes.h"
#include "torture/processes/PlainService.h"
#include "torture/starvation/Starved.h"

#include <string>

namespace kelutv::test {

/** How one run of the client ended. */
enum Ending : int {
    /** Everything was right. */
    kRight,
    /** One operation, or the events, gave what is documented for a failure; everything else was right. */
    kOneFailed,
    /** Several did, though not all. */
    kSomeFailed,
    /** The link was never made: every operation gave what is documented for that. */
    kUnconnected,
    /** There was no memory, and the process ended by SIGABRT with a line that says so. */
    kOutOfMemory,
    /** An operation gave something else, or sent something else. */
    kWrong,
    /** The process ended in any other way. */
    kCrashed,
    /** The process did not end in time. */
    kHung,
    kEndings
};

constexpr std::array<const char*, kEndings> kEndingNames = {"right",         "one failed", "some failed", "unconnected",
                                                            "out of memory", "WRONG",      "CRASHED",     "HUNG"};

/** One run, and how it ended. */
struct ClientRun {
    Ending ending;
    /** What was wrong, and what the process wrote, in words. */
    std::string what;
    /** How often the client asked for the resource. */
    long seen;
};

/**
 * A client run from its start to its exit, in a process of its own: it connects, subscribes, makes one call of every
 * shape, gets events, loses the service, calls on, and exits.
 */
class StarvedClient {
public:
    StarvedClient();

    /** Runs it once, with a service of its own. */
    ClientRun run(const Starved& starved);

private:
    void live(const Starved& starved);
    void callConnected(const Operation& operation);
    void callWithoutService(const Operation& operation);
    void takeEvents();
    void loseService();
    Ending judge(const std::string& text, std::optional<int> status) const;

    const std::vector<Operation> mOperations;
    PlainService mService;
    Shared<starvation::Page> mStarvation;
    Shared<CallNotes> mNotes;
};

} // namespace kelutv::test
