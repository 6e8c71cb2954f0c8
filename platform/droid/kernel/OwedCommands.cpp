#include "OwedCommands.h"

#include "socket/ProcessLife.h"

#include <new>

namespace android {

void OwedCommands::send(BinderCommands* commands) {
    if (kq::inForkedChild()) {
        commands->clear();
        return;
    }
    const std::lock_guard<std::mutex> lock(mMutex);
    try {
        mCommands.append(*commands);
    } catch (const std::bad_alloc&) {
        // Those that fill the room go first; these are the ones to lose when they cannot.
        if (flush()) {
            commands->sendTo(mDriver);
        }
    }
    commands->clear();
    flush();
}

bool OwedCommands::settleAll() {
    const std::lock_guard<std::mutex> lock(mMutex);
    return flush();
}

bool OwedCommands::flush() {
    if (!mCommands.empty()) {
        mCommands.sendTo(mDriver);
    }
    mOwes = !mCommands.empty();
    return mCommands.empty();
}

} // namespace android
