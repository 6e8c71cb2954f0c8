#pragma once

#include "support/ChildProcess.h"
#include "support/ScriptedProtocol.h"
#include "support/Wire.h"

#include <binder/IBinder.h>
#include <utils/Errors.h>
#include <utils/StrongPointer.h>

#include <sys/types.h>

#include <memory>
#include <vector>

namespace kelutv::test {

/**
 * A television service in a process of its own that answers as the test says and remembers what it was asked.
 *
 * It is registered under the true name and reached over the true transport. Its process ends with this object.
 */
class ScriptedService {
public:
    struct Caller {
        uid_t uid;
        pid_t pid;
    };

    /** Starts the process and returns once it is registered. */
    void start();

    /** The bytes that answer every following request. */
    void reply(const Bytes& bytes);

    /** The bytes that answer every following request of this command, up to the next `reply`. */
    void replyTo(int command, const Bytes& bytes);

    /** Makes every following transaction fail with this status instead of an answer. */
    void replyStatus(android::status_t status);

    /** The whole payload of every request since the last take, in the order of arrival. */
    std::vector<Bytes> takeRequests();

    /** The next request is not answered before `release`. */
    void hangNext();

    /** Waits until a request is being held. */
    bool waitUntilHanging();
    void release();

    /** The process ends when the next request is in, without an answer to it. */
    void exitBeforeReply();

    /** The process ends as soon as the next request has been answered. */
    void exitAfterReply();

    /** Ends the process with SIGKILL and returns when it is gone. */
    void kill();

    /** Waits for the process to end by itself. */
    bool waitUntilGone();

    /** Who sent the last request, as the service's runtime saw it. */
    Caller callingUidPid();

    const android::sp<android::IBinder>& binder() const { return mBinder; }

private:
    void control(scripted::Control code);

    std::unique_ptr<ChildProcess> mProcess;
    android::sp<android::IBinder> mBinder;
};

} // namespace kelutv::test
