#include <binder/IPCThreadState.h>

#include "Transport.h"

#include <unistd.h>

namespace android {

IPCThreadState* IPCThreadState::self() {
    static thread_local IPCThreadState state;
    return &state;
}

pid_t IPCThreadState::getCallingPid() const { return mInCall ? mCallingPid : ::getpid(); }

uid_t IPCThreadState::getCallingUid() const { return mInCall ? mCallingUid : ::getuid(); }

void IPCThreadState::joinThreadPool(bool) {
    Transport::get().serve();
    for (;;) {
        ::pause();
    }
}

} // namespace android
