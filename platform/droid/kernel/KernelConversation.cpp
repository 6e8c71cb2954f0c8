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

#include <cstring>

namespace android {

namespace {

constexpr const char* kTag = "kqdroid";
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

void freeBuffer(void* binder, const uint8_t* data) { static_cast<KernelBinder*>(binder)->freeBuffer(data); }

} // namespace

template <typename Payload> void KernelConversation::send(uint32_t command, const Payload& payload) {
    mCommands.append(command, payload);
}

std::optional<BinderReturns> KernelConversation::exchange() {
    const ssize_t received = mCommands.exchangeWith(mBinder.driver(), mReturns.data(), mReturns.size());
    if (received < 0) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "binder driver: %s", std::strerror(static_cast<int>(-received)));
        return std::nullopt;
    }
    return BinderReturns(mReturns.data(), static_cast<size_t>(received));
}

status_t KernelConversation::call(uint32_t handle, uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    const bool oneWay = (flags & IBinder::FLAG_ONEWAY) != 0;
    binder_transaction_data message = messageOf(data);
    message.target.handle = handle;
    message.code = code;
    message.flags = oneWay ? TF_ONE_WAY : 0;
    send(BC_TRANSACTION, message);
    return await(oneWay ? Awaited::Acceptance : Awaited::Reply, reply);
}

void KernelConversation::serve(uint32_t entry) {
    mCommands.append(entry);
    while (std::optional<BinderReturns> returned = exchange()) {
        mBinder.addOwedServer();
        while (returned->next()) {
            handle(*returned);
        }
    }
}

status_t KernelConversation::await(Awaited awaited, Parcel* reply) {
    std::optional<status_t> status;
    while (!status) {
        std::optional<BinderReturns> returned = exchange();
        if (!returned) {
            return FAILED_TRANSACTION;
        }
        while (returned->next()) {
            if (const std::optional<status_t> came = outcome(*returned, awaited, reply); came) {
                status = came;
            } else {
                handle(*returned);
            }
        }
    }
    // Nothing may stay behind: what a thread has still to tell of its objects keeps the driver from letting them go.
    if (!mCommands.empty()) {
        mCommands.sendTo(mBinder.driver());
    }
    return *status;
}

std::optional<status_t> KernelConversation::outcome(const BinderReturns& returned, Awaited awaited, Parcel* reply) {
    binder_transaction_data message{};
    switch (returned.command()) {
    case BR_TRANSACTION_COMPLETE:
    case BR_ONEWAY_SPAM_SUSPECT:
    case kTransactionPendingFrozen:
        return awaited == Awaited::Acceptance ? std::optional<status_t>(NO_ERROR) : std::nullopt;
    case BR_DEAD_REPLY:
        return DEAD_OBJECT;
    case BR_FAILED_REPLY:
    case BR_FROZEN_REPLY:
        return FAILED_TRANSACTION;
    case BR_REPLY:
        return returned.payload(&message) ? takeReply(message, reply) : FAILED_TRANSACTION;
    default:
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

status_t KernelConversation::takeReply(const binder_transaction_data& message, Parcel* reply) {
    if (!intact(message)) {
        __android_log_write(ANDROID_LOG_ERROR, kTag, "a reply lies outside the driver's memory");
        return FAILED_TRANSACTION;
    }
    Parcel unwanted;
    Parcel* const taken = reply == nullptr ? &unwanted : reply;
    ReceivedParcel::adopt(taken, pointerTo(message.data.ptr.buffer), static_cast<size_t>(message.data_size), freeBuffer,
                          &mBinder);
    if ((message.flags & TF_STATUS_CODE) != 0) {
        int32_t status = UNKNOWN_ERROR;
        taken->readInt32(&status);
        taken->freeData();
        return status;
    }
    ParcelObjects::note(taken, pointerTo(message.data.ptr.offsets), static_cast<size_t>(message.offsets_size));
    return NO_ERROR;
}

void KernelConversation::handle(const BinderReturns& returned) {
    binder_ptr_cookie object{};
    binder_uintptr_t cookie = 0;
    binder_transaction_data message{};
    switch (returned.command()) {
    case BR_INCREFS:
    case BR_ACQUIRE:
    case BR_RELEASE:
    case BR_DECREFS:
        if (returned.payload(&object)) {
            handleReference(returned.command(), object);
        }
        break;
    case BR_TRANSACTION:
        if (returned.payload(&message)) {
            handleTransaction(message);
        }
        break;
    case BR_SPAWN_LOOPER:
        mBinder.addServer();
        break;
    case BR_DEAD_BINDER:
        if (returned.payload(&cookie)) {
            handleDeath(cookie);
        }
        break;
    default:
        break;
    }
}

void KernelConversation::handleReference(uint32_t command, const binder_ptr_cookie& object) {
    if (command == BR_RELEASE || command == BR_DECREFS) {
        LocalObjects::instance().release(object.cookie);
        return;
    }
    LocalObjects::instance().holdAgain(object.cookie);
    send(command == BR_INCREFS ? BC_INCREFS_DONE : BC_ACQUIRE_DONE, object);
}

void KernelConversation::handleDeath(binder_uintptr_t cookie) {
    mBinder.died(cookie);
    send(BC_DEAD_BINDER_DONE, cookie);
}

void KernelConversation::handleTransaction(const binder_transaction_data& message) {
    const bool oneWay = (message.flags & TF_ONE_WAY) != 0;
    Parcel reply;
    status_t status = FAILED_TRANSACTION;
    if (intact(message)) {
        const CallerIdentity identity({message.sender_pid, message.sender_euid});
        ReceivedParcel request(pointerTo(message.data.ptr.buffer), static_cast<size_t>(message.data_size));
        ParcelObjects::note(&request.parcel(), pointerTo(message.data.ptr.offsets),
                            static_cast<size_t>(message.offsets_size));
        const sp<BBinder> object = mBinder.target(message.target.ptr);
        status = object == nullptr
                     ? UNKNOWN_TRANSACTION
                     : object->transact(message.code, request.parcel(), oneWay ? nullptr : &reply, message.flags);
        kq::endForkedChild();
    }
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
    await(Awaited::Acceptance, nullptr);
}

} // namespace android
