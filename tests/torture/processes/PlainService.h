#pragma once

#include "torture/operations/Operation.h"
#include "torture/processes/ForkedProcess.h"
#include "torture/processes/Shared.h"

#include <utils/Errors.h>

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace kelutv::test {

/** A request without arguments upon which the service publishes `kEventsPerRequest` events of the module VOLUME. */
constexpr int kPublishCommand = 0x7F80;
constexpr unsigned int kEventsPerRequest = 3;

/**
 * A television service in a process of its own, forked from the test, that knows a list of operations: it answers their
 * requests, and counts every request that differs from them in a single byte.
 */
class PlainService {
public:
    /** What happens in the service's process before it answers its n-th request, counted from 0; 0 for an answer. */
    using Before = std::function<android::status_t(int number)>;

    explicit PlainService(std::vector<Operation> operations, Before before = {})
        : mOperations(std::move(operations)), mBefore(std::move(before)) {}

    /** Starts a new process, in place of the last one, and returns when it can be found. Throws when it cannot. */
    void start();

    /** Ends the process with SIGKILL and returns when it is gone. */
    void kill() { mProcess.reset(); }

    /** Returns when the process has ended by itself. Throws when it does not. */
    void awaitEnd();

    pid_t pid() const { return mProcess->pid(); }

    /** How many requests came that no operation sends, since the start. */
    int wrongRequests() const { return mPage->wrongRequests.load(); }

    /** The first of them, in hexadecimal. */
    const char* firstWrongRequest() const { return mPage->firstWrongRequest.data(); }

private:
    struct Page {
        std::atomic<bool> ready{false};
        std::atomic<int> wrongRequests{0};
        std::array<char, 512> firstWrongRequest{};
    };
    class Binder;

    void serve();

    const std::vector<Operation> mOperations;
    const Before mBefore;
    Shared<Page> mPage;
    std::unique_ptr<ForkedProcess> mProcess;
};

} // namespace kelutv::test
