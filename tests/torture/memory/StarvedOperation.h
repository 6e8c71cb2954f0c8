#pragma once

#include "torture/processes/CallNotes.h"
#include "torture/processes/ForkedProcess.h"
#include "torture/processes/PlainService.h"
#include "torture/starvation/Starved.h"

#include <string>
#include <vector>

namespace kelutv::test {

/** How a client ended that made one operation again and again, each time without another of its allocations. */
struct OperationRun {
    /** The wait status. */
    int status = 0;
    /** The allocation that it lacked at the end, counted from 1. */
    long reached = 0;
    /** Whether it has lacked each allocation of the operation in turn. */
    bool all = false;
    /** What was wrong, in words; empty when nothing was. */
    std::string wrong;
    /** What it wrote. */
    std::string text;
};

/** Clients of one service, each a process of its own, that lack memory while they make an operation. */
class StarvedOperation {
public:
    /** Starts the service, which answers these operations. */
    explicit StarvedOperation(const std::vector<Operation>& operations);

    /**
     * A client with a link makes the operation without its allocation `first`, then as it should be, then both without
     * the next allocation and so on, until all have been lacking or the lack ends the process.
     */
    OperationRun run(const Operation& operation, long first, bool lasting);

    /** A client makes its link with the operation without the allocation `nth`, and then the operation once more. */
    OperationRun connect(const Operation& operation, long nth, bool lasting);

    /** A client with a link makes the operation once, without the allocation `nth`. Wrong is anything but a failure. */
    OperationRun lack(const Operation& operation, long nth);

    /** How many requests the service has got. */
    int requests() const { return mRequests->count; }

    /** The first request that no operation sends, in hexadecimal; empty when there was none. */
    std::string wrongRequest() const { return mService.firstWrongRequest(); }

private:
    struct Requests {
        std::atomic<int> count{0};
    };
    struct Page {
        std::atomic<long> reached{0};
        std::atomic<bool> all{false};
        CallNotes notes;
    };

    OperationRun live(const std::function<void()>& body);
    bool starve(const Operation& operation, const Starved& starved);
    void feed(const Operation& operation, bool mayFail);

    const Shared<Requests> mRequests;
    Shared<starvation::Page> mStarvation;
    Shared<Page> mPage;
    PlainService mService;
};

} // namespace kelutv::test
