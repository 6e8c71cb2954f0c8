#pragma once

#include "socket/SeqPacket.h"

#include <binder/IPCThreadState.h>

namespace android {

/** Who this thread works for while it handles one call. */
class CallerIdentity {
public:
    explicit CallerIdentity(const kq::Peer& caller) {
        IPCThreadState* const state = IPCThreadState::self();
        mOuter = *state;
        state->mCallingPid = caller.pid;
        state->mCallingUid = caller.uid;
        state->mInCall = true;
    }
    ~CallerIdentity() {
        IPCThreadState* const state = IPCThreadState::self();
        state->mCallingPid = mOuter.mCallingPid;
        state->mCallingUid = mOuter.mCallingUid;
        state->mInCall = mOuter.mInCall;
    }
    CallerIdentity(const CallerIdentity&) = delete;
    CallerIdentity& operator=(const CallerIdentity&) = delete;

private:
    // A call may come in while its thread, itself in a call, waits for an answer.
    IPCThreadState mOuter;
};

} // namespace android
