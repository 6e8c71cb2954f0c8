#pragma once

#include "BinderCommands.h"

#include <utils/Errors.h>

#include <array>
#include <optional>

namespace android {

class KernelBinder;
class Parcel;

/** What one thread says to the driver and hears from it. */
class KernelConversation {
public:
    explicit KernelConversation(KernelBinder& binder) : mBinder(binder) {}

    /** As RemoteObject::transact. Calls that come in for this thread meanwhile are served. */
    status_t call(uint32_t handle, uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags);
    /** Makes this thread one of those that serve, by `entry`; returns only when the driver is gone. */
    void serve(uint32_t entry);

private:
    enum class Awaited { Acceptance, Reply, AcceptanceOfAnswer };

    status_t await(Awaited awaited, Parcel* reply);
    std::optional<status_t> outcome(const BinderReturns& returned, Awaited awaited, Parcel* reply);
    status_t takeReply(const BinderReturns& returned, Parcel* reply);
    void answer(status_t status, const Parcel& reply);

    ssize_t exchange();
    bool goesOn(ssize_t error, Awaited awaited, int pauses) const;
    void giveUp();
    bool resume();
    void handle(const BinderReturns& returned);
    void dispatch(const BinderReturns& returned);
    void handleReference(const BinderReturns& returned);
    void handleDeath(const BinderReturns& returned);
    void handleTransaction(const BinderReturns& returned);
    status_t passOn(const binder_transaction_data& message, Parcel* reply);
    bool intact(const binder_transaction_data& message) const;
    template <typename Payload> void send(uint32_t command, const Payload& payload);

    KernelBinder& mBinder;
    BinderCommands mCommands;
    // Of the commands, those up to the message that is to be sent.
    size_t mUntaken = 0;
    ssize_t mFailure = 0;
    std::array<uint8_t, 512> mReturns;
};

} // namespace android
