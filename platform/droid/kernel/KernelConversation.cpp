#include "KernelConversation.h"

#include "KernelBinder.h"
#include "droid/CallerIdentity.h"
#include "droid/LocalObjects.h"
#include "droid/ParcelObjects.h"
#include "droid/ReceivedParcel.h"
#include "droid/Transport.h"
#include "socket/Descriptors.h"

#include <android/log.h>
#include <binder/Parcel.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <new>
#include <thread>
#include <utility>

namespace android {

namespace {

using namespace std::chrono_literals;

constexpr const char* kTag = "kqdroid";
// Before the driver is asked again that has no memory.
constexpr auto kPause = 50ms;
// A caller whose request is taken waits for so many pauses that its answer can be read.
constexpr int kMostPauses = 10;
// Younger than the oldest header that this is built with: the driver keeps a one-way call for a process that is frozen.
constexpr uint32_t kTransactionPendingFrozen = _IO('r', 20);

const uint8_t* pointerTo(binder_uintptr_t address) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the driver speaks of addresses as numbers.
    return reinterpret_cast<const uint8_t*>(static_cast<uintptr_t>(address));
}

binder_uintptr_t addressOf(const void* place) { return reinterpret_cast<uintptr_t>(place); }

/** A message of the parcel's bytes; they must stay until it was sent. */
binder_transaction_data messageOf(const Parcel& parcel) {
    binder_transaction_data message{};
    message.data_size = parcel.dataSize();
    message.data.ptr.buffer = addressOf(parcel.data());
    if (const std::vector<binder_size_t>* const offsets = ParcelObjects::offsetsOf(parcel); offsets != nullptr) {
        message.offsets_size = offsets->size() * sizeof(binder_size_t);
        message.data.ptr.offsets = addressOf(offsets->data());
    }
    return message;
}

// The thread serves, for good or while a call comes in for it: what it has under way must come to its end.
thread_local bool tServes = false;
// The thread has given up a call that the driver may still answer.
thread_local bool tStale = false;

class Serving {
public:
    Serving() : mBefore(std::exchange(tServes, true)) {}
    ~Serving() { tServes = mBefore; }
    Serving(const Serving&) = delete;
    Serving& operator=(const Serving&) = delete;

private:
    const bool mBefore;
};

/** True for a failure after which what was not taken can be sent again. */
bool passes(ssize_t error) { return error == -ENOMEM || error == -EAGAIN || error == -ENOBUFS; }

/** False, with a line in the log, for a message that is larger than what any transport carries. */
bool isCarried(const binder_transaction_data& message, const char* kind) {
    if (message.data_size <= kMaxTransaction) {
        return true;
    }
    __android_log_print(ANDROID_LOG_WARN, kTag, "a %s of %llu bytes is refused: %zu are the most", kind,
                        static_cast<unsigned long long>(message.data_size), kMaxTransaction);
    return false;
}

void giveBack(void* returned, const uint8_t* data) { static_cast<ReturnedBuffers*>(returned)->giveBack(data); }
void keep(void* returned, const uint8_t* data) { static_cast<ReturnedBuffers*>(returned)->keep(data); }

/** How a message's buffer goes back. One with objects goes at once, since others wait to hear that nobody holds those.
 */
ReceivedParcel::Release releaseOf(const binder_transaction_data& message) {
    return message.offsets_size == 0 && message.data_size <= ReturnedBuffers::kLargestKept ? keep : giveBack;
}

} // namespace

template <typename Payload> void KernelConversation::send(uint32_t command, const Payload& payload) {
    mCommands.append(command, payload);
}

/** How many bytes came from the driver, or a negative errno value, which is logged the first time. */
ssize_t KernelConversation::exchange() {
    mBinder.returned().takeKept(&mCommands);
    const size_t before = mCommands.size();
    const ssize_t received = mCommands.exchangeWith(mBinder.driver(), mReturns.data(), mReturns.size());
    mUntaken -= std::min(mUntaken, before - mCommands.size());
    if (received < 0 && received != mFailure) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "binder driver: %s", std::strerror(static_cast<int>(-received)));
    }
    mFailure = std::min<ssize_t>(received, 0);
    return received;
}

status_t KernelConversation::call(uint32_t handle, uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    if (!resume()) {
        return FAILED_TRANSACTION;
    }
    const bool oneWay = (flags & IBinder::FLAG_ONEWAY) != 0;
    binder_transaction_data message = messageOf(data);
    message.target.handle = handle;
    message.code = code;
    message.flags = oneWay ? TF_ONE_WAY : 0;
    send(BC_TRANSACTION, message);
    mUntaken = mCommands.size();
    return await(oneWay ? Awaited::Acceptance : Awaited::Reply, reply);
}

void KernelConversation::serve(uint32_t entry) {
    const Serving serving;
    mCommands.append(entry);
    for (ssize_t received = exchange(); received >= 0 || passes(received); received = exchange()) {
        if (received < 0) {
            std::this_thread::sleep_for(kPause);
            continue;
        }
        mBinder.addOwedServer();
        mBinder.owed().settle();
        BinderReturns returned(mReturns.data(), static_cast<size_t>(received));
        while (returned.next()) {
            handle(returned);
        }
    }
}

/** False when this thread cannot call: the driver has still to forget a call that was given up. */
bool KernelConversation::resume() {
    if (tStale && !kq::inForkedChild()) {
        tStale = mBinder.driver().control(BINDER_THREAD_EXIT, nullptr) != 0;
    }
    mBinder.owed().settle();
    return !tStale;
}

/** True when the driver is to be asked again, after this many pauses. A call that it has not taken just fails. */
bool KernelConversation::goesOn(ssize_t error, Awaited awaited, int pauses) const {
    if (!passes(error)) {
        return false;
    }
    return awaited == Awaited::AcceptanceOfAnswer || (mUntaken == 0 && (tServes || pauses < kMostPauses));
}

void KernelConversation::giveUp() {
    tStale = tStale || (mUntaken == 0 && !tServes);
    mCommands.dropFirst(std::exchange(mUntaken, 0));
    mBinder.owed().send(&mCommands);
}

status_t KernelConversation::await(Awaited awaited, Parcel* reply) {
    std::optional<status_t> status;
    int pauses = 0;
    while (!status) {
        const ssize_t received = exchange();
        if (received < 0) {
            if (!goesOn(received, awaited, pauses++)) {
                giveUp();
                return FAILED_TRANSACTION;
            }
            std::this_thread::sleep_for(kPause);
            continue;
        }
        BinderReturns returned(mReturns.data(), static_cast<size_t>(received));
        while (returned.next()) {
            if (const std::optional<status_t> came = outcome(returned, awaited, reply); came) {
                status = came;
            }
        }
    }
    // Nothing may stay behind: what a thread has still to tell of its objects keeps the driver from letting them go.
    if (!mCommands.empty()) {
        mBinder.owed().send(&mCommands);
    }
    return *status;
}

std::optional<status_t> KernelConversation::outcome(const BinderReturns& returned, Awaited awaited, Parcel* reply) {
    switch (returned.command()) {
    case BR_TRANSACTION_COMPLETE:
    case BR_ONEWAY_SPAM_SUSPECT:
    case kTransactionPendingFrozen:
        return awaited == Awaited::Reply ? std::nullopt : std::optional<status_t>(NO_ERROR);
    case BR_DEAD_REPLY:
        return DEAD_OBJECT;
    case BR_FAILED_REPLY:
    case BR_FROZEN_REPLY:
        return FAILED_TRANSACTION;
    case BR_REPLY:
        return takeReply(returned, reply);
    default:
        handle(returned);
        return std::nullopt;
    }
}

bool KernelConversation::intact(const binder_transaction_data& message) const {
    const BinderDriver& driver = mBinder.driver();
    return message.data_size <= INT32_MAX && message.offsets_size <= INT32_MAX &&
           driver.owns(pointerTo(message.data.ptr.buffer), static_cast<size_t>(message.data_size)) &&
           (message.offsets_size == 0 ||
            driver.owns(pointerTo(message.data.ptr.offsets), static_cast<size_t>(message.offsets_size)));
}

status_t KernelConversation::takeReply(const BinderReturns& returned, Parcel* reply) {
    if (reply == nullptr) {
        Parcel unwanted;
        return takeReply(returned, &unwanted);
    }
    binder_transaction_data message;
    if (!returned.payload(&message)) {
        return FAILED_TRANSACTION;
    }
    if (!intact(message)) {
        __android_log_write(ANDROID_LOG_ERROR, kTag, "a reply lies outside the driver's memory");
        return FAILED_TRANSACTION;
    }
    ReceivedParcel::adopt(reply, pointerTo(message.data.ptr.buffer), static_cast<size_t>(message.data_size),
                          releaseOf(message), &mBinder.returned());
    if (!isCarried(message, "reply")) {
        reply->freeData();
        return FAILED_TRANSACTION;
    }
    if ((message.flags & TF_STATUS_CODE) != 0) {
        int32_t status = UNKNOWN_ERROR;
        reply->readInt32(&status);
        reply->freeData();
        return status;
    }
    try {
        ParcelObjects::note(reply, pointerTo(message.data.ptr.offsets), static_cast<size_t>(message.offsets_size));
    } catch (const std::bad_alloc&) {
        reply->freeData();
        return NO_MEMORY;
    }
    return NO_ERROR;
}

/** What cannot be handled for want of memory fails alone. */
void KernelConversation::handle(const BinderReturns& returned) {
    try {
        dispatch(returned);
    } catch (const std::bad_alloc&) {
        __android_log_write(ANDROID_LOG_ERROR, kTag, "no memory for what the binder driver asks");
    }
}

void KernelConversation::dispatch(const BinderReturns& returned) {
    switch (returned.command()) {
    case BR_INCREFS:
    case BR_ACQUIRE:
    case BR_RELEASE:
    case BR_DECREFS:
        handleReference(returned);
        break;
    case BR_TRANSACTION:
        handleTransaction(returned);
        break;
    case BR_SPAWN_LOOPER:
        mBinder.addServer();
        break;
    case BR_DEAD_BINDER:
        handleDeath(returned);
        break;
    default:
        break;
    }
}

void KernelConversation::handleReference(const BinderReturns& returned) {
    binder_ptr_cookie object;
    if (!returned.payload(&object)) {
        return;
    }
    const uint32_t command = returned.command();
    if (command == BR_RELEASE || command == BR_DECREFS) {
        LocalObjects::instance().release(object.cookie);
        return;
    }
    LocalObjects::instance().holdAgain(object.cookie);
    send(command == BR_INCREFS ? BC_INCREFS_DONE : BC_ACQUIRE_DONE, object);
}

void KernelConversation::handleDeath(const BinderReturns& returned) {
    binder_uintptr_t cookie = 0;
    if (returned.payload(&cookie)) {
        mBinder.died(cookie);
        send(BC_DEAD_BINDER_DONE, cookie);
    }
}

/** Has the object that a call is for handle it; NO_MEMORY when there is too little of that. */
status_t KernelConversation::passOn(const binder_transaction_data& message, Parcel* reply) {
    status_t status = UNKNOWN_TRANSACTION;
    try {
        const CallerIdentity identity({message.sender_pid, message.sender_euid});
        ReceivedParcel request(pointerTo(message.data.ptr.buffer), static_cast<size_t>(message.data_size));
        ParcelObjects::note(&request.parcel(), pointerTo(message.data.ptr.offsets),
                            static_cast<size_t>(message.offsets_size));
        const sp<BBinder> object = mBinder.target(message.target.ptr);
        if (object != nullptr) {
            status = object->transact(message.code, request.parcel(), reply, message.flags);
        }
    } catch (const std::bad_alloc&) {
        status = NO_MEMORY;
    }
    kq::endForkedChild();
    return status;
}

void KernelConversation::handleTransaction(const BinderReturns& returned) {
    binder_transaction_data message;
    if (!returned.payload(&message)) {
        return;
    }
    const Serving serving;
    const bool oneWay = (message.flags & TF_ONE_WAY) != 0;
    Parcel reply;
    const bool taken = intact(message) && isCarried(message, "request");
    const status_t status = taken ? passOn(message, oneWay ? nullptr : &reply) : FAILED_TRANSACTION;
    if (oneWay) {
        send(BC_FREE_BUFFER, message.data.ptr.buffer);
        return;
    }
    // What comes back must not overwrite what this conversation still has to read.
    KernelConversation answering(mBinder);
    answering.send(BC_FREE_BUFFER, message.data.ptr.buffer);
    answering.answer(status, reply);
}

void KernelConversation::answer(status_t status, const Parcel& reply) {
    if (status == NO_ERROR && reply.dataSize() > kMaxTransaction) {
        status = FAILED_TRANSACTION;
    }
    binder_transaction_data message = messageOf(reply);
    int32_t word = status;
    if (status != NO_ERROR) {
        message = {};
        message.flags = TF_STATUS_CODE;
        message.data_size = sizeof(word);
        message.data.ptr.buffer = addressOf(&word);
    }
    send(BC_REPLY, message);
    await(Awaited::AcceptanceOfAnswer, nullptr);
}

} // namespace android
