#include "ReturnedBuffers.h"

#include "ThreadEnd.h"

#include <linux/android/binder.h>

#include <array>

namespace android {

namespace {

/** What a thread keeps, all of it of one driver. */
struct Kept {
    ReturnedBuffers* owner;
    size_t count;
    std::array<const uint8_t*, ReturnedBuffers::kMostOfThread> buffers;
};

thread_local Kept tKept{};

constexpr size_t kCommandSize = sizeof(uint32_t) + sizeof(binder_uintptr_t);

void appendFree(BinderCommands* commands, const uint8_t* data) {
    commands->append(BC_FREE_BUFFER, static_cast<binder_uintptr_t>(reinterpret_cast<uintptr_t>(data)));
}

} // namespace

ReturnedBuffers::ReturnedBuffers(OwedCommands& owed) : mOwed(owed) {
    // Before anything makes the driver hear of the ends of threads: what they keep must go back first.
    threadEnd();
}

const ThreadEnd& ReturnedBuffers::threadEnd() {
    static const ThreadEnd end([](void*) { giveKeptBack(); });
    return end;
}

void ReturnedBuffers::giveKeptBack() {
    BinderCommands commands;
    tKept.owner->takeKept(&commands);
    tKept.owner->mOwed.send(&commands);
}

bool ReturnedBuffers::mayKeep() {
    Kept& kept = tKept;
    if (kept.owner != this) {
        if (kept.count > 0) {
            giveKeptBack();
        }
        kept.owner = this;
    }
    return threadEnd().tellOfThis(this) == 0 && kept.count < kMostOfThread && countOne();
}

bool ReturnedBuffers::countOne() {
    const bool counted = mKept.fetch_add(1, std::memory_order_relaxed) < kMostOfProcess;
    if (!counted) {
        mKept.fetch_sub(1, std::memory_order_relaxed);
    }
    return counted;
}

void ReturnedBuffers::keep(const uint8_t* data) {
    if (!mayKeep()) {
        giveBack(data);
        return;
    }
    tKept.buffers[tKept.count++] = data;
}

void ReturnedBuffers::giveBack(const uint8_t* data) {
    BinderCommands commands;
    appendFree(&commands, data);
    takeKept(&commands);
    mOwed.send(&commands);
}

void ReturnedBuffers::takeKept(BinderCommands* commands) {
    Kept& kept = tKept;
    if (kept.owner != this || kept.count == 0 || !commands->hasRoomFor(kept.count * kCommandSize)) {
        return;
    }
    for (size_t at = 0; at < kept.count; ++at) {
        appendFree(commands, kept.buffers[at]);
    }
    mKept.fetch_sub(kept.count, std::memory_order_relaxed);
    kept.count = 0;
}

} // namespace android
