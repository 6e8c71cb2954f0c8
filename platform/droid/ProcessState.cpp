#include <binder/ProcessState.h>

#include "Transport.h"

namespace android {

sp<ProcessState> ProcessState::self() {
    // Held for ever: used by threads that outlive static objects.
    static const sp<ProcessState>* const state = new sp<ProcessState>(new ProcessState);
    return *state;
}

void ProcessState::startThreadPool() { Transport::get().serve(); }

} // namespace android
