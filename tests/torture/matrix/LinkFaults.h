#pragma once

#include "torture/processes/PlainService.h"

#include <string>

namespace kelutv::test {

/** What a call that the fault hits gave, and what the one after it did. */
struct FaultyCalls {
    std::string call;
    std::string next;
};

/** Makes a fault of the link for one operation, with a service and a client of their own. */
class LinkFault {
public:
    /** @param name The fault, as the reference page's table names it. Throws for a name that it does not know. */
    LinkFault(const std::string& name, const Operation& operation);

    /** Throws when the client does not come to its end. */
    FaultyCalls make();

private:
    enum class Kind {
        Absent,
        Gone,
        EndsInCall,
        EndsInAnswer,
        Refuses,
        Unasked,
        Twice,
        Late,
        Never,
        Stopped,
        NoDescriptors,
        NoMoreDescriptors
    };

    struct Stage {
        std::atomic<bool> connected{false};
        std::atomic<bool> go{false};
        std::atomic<bool> calling{false};
        std::atomic<bool> held{false};
        std::atomic<bool> released{false};
        std::atomic<bool> settled{false};
        Outcome call;
        Outcome next;
    };

    static Kind kindOf(const std::string& name);
    bool hasLink() const { return mKind != Kind::Absent && mKind != Kind::NoDescriptors; }
    android::status_t beforeAnswer(int number);
    void live();
    void prepare();
    void finish();

    const Kind mKind;
    const Operation mOperation;
    /** The number of the request that is hit. The first of all makes the link. */
    const int mHit;
    PlainService mService;
    Shared<Stage> mStage;
};

} // namespace kelutv::test
