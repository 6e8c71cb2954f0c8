#pragma once

#include "support/ChildProcess.h"
#include "support/TestFolder.h"
#include "torture/processes/CallNotes.h"
#include "torture/processes/Shared.h"
#include "torture/starvation/PageFile.h"
#include "torture/starvation/Starved.h"

#include <memory>
#include <string>
#include <vector>

namespace kelutv::test {

/** What a client saw of a service that was refused something, and what a second one saw afterwards. */
struct ServiceRun {
    int right = 0;
    int failed = 0;
    /** What was wrong, in words; empty when nothing was. */
    std::string wrong;
    /** How often the service asked for the resource. */
    long seen = 0;
};

/**
 * The simulated television that is refused what the test says while a client calls it. Another
 * client looks at it when nothing is refused any more.
 */
class StarvedService {
public:
    /** @param keepsState Whether it has a state file. */
    explicit StarvedService(bool keepsState);

    ServiceRun run(const Starved& starved);

    /** Ends the television, starts it anew, and says in words what it has forgotten; empty for nothing. */
    std::string restart();

    /** How many descriptors the television holds. */
    std::size_t descriptors() const;

private:
    /** What a client leaves for the test. */
    struct Visit {
        CallNotes notes;
        std::atomic<bool> acknowledged{false};
        std::atomic<int> volume{0};
    };

    void start();
    std::string visit(int volume);
    void live(int volume);
    std::string look();

    const bool mKeepsState;
    TestFolder mFolder;
    PageFile mStarvation;
    const std::vector<Operation> mOperations;
    Shared<Visit> mVisit;
    std::unique_ptr<ChildProcess> mProcess;
    /** What the volume may be: the one that was acknowledged or seen last, or the one that was set last. */
    int mAcknowledged = 0;
    int mSet = 0;
};

} // namespace kelutv::test
