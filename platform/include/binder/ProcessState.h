#pragma once

#include <utils/RefBase.h>

namespace android {

/** The runtime as one process sees it. */
class ProcessState : public virtual RefBase {
public:
    static sp<ProcessState> self();

    /** Starts serving the calls to this process's services, on threads of the runtime. */
    void startThreadPool();

private:
    ProcessState() = default;
};

} // namespace android
