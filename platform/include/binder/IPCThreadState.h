#pragma once

#include <sys/types.h>

#include <cstdint>

namespace android {

/** The runtime as one thread sees it. */
class IPCThreadState {
public:
    static IPCThreadState* self();

    /** Who made the call that this thread handles; this process itself outside a call. */
    pid_t getCallingPid() const;
    uid_t getCallingUid() const;

    void setStrictModePolicy(int32_t policy) { mStrictModePolicy = policy; }
    int32_t getStrictModePolicy() const { return mStrictModePolicy; }

    /** Serves calls and does not return while the process lives. */
    void joinThreadPool(bool isMain = true);

private:
    friend class CallerIdentity;

    pid_t mCallingPid = 0;
    uid_t mCallingUid = 0;
    bool mInCall = false;
    int32_t mStrictModePolicy = 0;
};

} // namespace android
