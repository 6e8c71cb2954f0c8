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
    /** Makes this thread one of those that serve, by `entry`; returns only when the driver fails. */
    void serve(uint32_t entry);

private:
    enum class Awaited { Acceptance, Reply };

    status_t await(Awaited awaited, Parcel* reply);
    std::optional<status_t> outcome(const BinderReturns& returned, Awaited awaited, Parcel* reply);
    status_t takeReply(const binder_transaction_data& message, Parcel* reply);
    void answer(status_t status, const Parcel& reply);

    std::optional<BinderReturns> exchange();
    void handle(const BinderReturns& returned);
    void handleReference(uint32_t command, const binder_ptr_cookie& object);
    void handleDeath(binder_uintptr_t cookie);
    void handleTransaction(const binder_transaction_data& message);
    bool intact(const binder_transaction_data& message) const;
    template <typename Payload> void send(uint32_t command, const Payload& payload);

    KernelBinder& mBinder;
    BinderCommands mCommands;
    std::array<uint8_t, 512> mReturns;
};

} // namespace android
