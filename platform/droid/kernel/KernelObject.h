#pragma once

#include "droid/Transport.h"

#include <memory>

namespace android {

class KernelBinder;

/** An object of another process that is reached by the driver's handle. */
class KernelObject : public RemoteObject {
public:
    /**
     * Takes a reference of its own; the caller's, such as that of a received parcel, must stand so long.
     *
     * @return null when the driver does not take that
     */
    static std::unique_ptr<KernelObject> hold(KernelBinder& binder, uint32_t handle);
    ~KernelObject() override;
    KernelObject(const KernelObject&) = delete;
    KernelObject& operator=(const KernelObject&) = delete;

    status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override;
    status_t watch(std::function<void()> onDeath) override;
    std::optional<uint32_t> handle() const override { return mHandle; }

private:
    KernelObject(KernelBinder& binder, uint32_t handle);

    KernelBinder& mBinder;
    const uint32_t mHandle;
    bool mHeld = false;
    uint64_t mWatch = 0;
};

} // namespace android
