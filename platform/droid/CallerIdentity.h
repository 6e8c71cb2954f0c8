#pragma once

#include "socket/SeqPacket.h"

#include <binder/IPCThreadState.h>

namespace android {

/** Who this thread works for while it handles one call. */
class CallerIdentity {
public:
    explicit CallerIdentity(const kq::Peer& caller) {
        IPCThreadState* const state = IPCThreadState::self();
        state->mCallingPid = caller.pid;
        state->mCallingUid = caller.uid;
        state->mInCall = true;
    }
    ~CallerIdentity() { IPCThreadState::self()->mInCall = false; }
    CallerIdentity(const CallerIdentity&) = delete;
    CallerIdentity& operator=(const CallerIdentity&) = delete;
};

} // namespace android
