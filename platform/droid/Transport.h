#pragma once

#include <binder/IBinder.h>
#include <utils/Vector.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace android {

/** The largest request or reply that a transport carries, the same for all of them. */
constexpr size_t kMaxTransaction = 1024 * 1024 - 8 * 1024;

/** The most UTF-16 units of a service's name. */
constexpr size_t kLongestServiceName = 127;

/** An object of another process as a transport reaches it. One BpBinder owns it. */
class RemoteObject {
public:
    virtual ~RemoteObject() = default;

    /** As IBinder::transact; called from several threads at once. `reply` is null for a one-way call only. */
    virtual status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) = 0;

    /**
     * Asks for one call of `onDeath`, on a thread of the runtime and through the delivery gate, when the object's
     * process goes away. Asked for until it succeeds once.
     *
     * @return NO_ERROR; DEAD_OBJECT, without a call of `onDeath`, when the process is known to be gone already.
     */
    virtual status_t watch(std::function<void()> onDeath) = 0;

    /** What a parcel names the object by; empty when parcels cannot carry it. */
    virtual std::optional<uint32_t> handle() const { return std::nullopt; }
};

/** What a service manager is told of a service; see IServiceManager::addService. */
struct ServiceTraits {
    bool allowIsolated;
    int dumpPriorities;
};

/**
 * How calls reach other processes: the one seam between the binder classes and the operating system.
 *
 * Nothing above it knows sockets or drivers. The objects it gives out are BpBinder or, for a service of this process,
 * the service itself.
 */
class Transport {
public:
    static Transport& get();
    virtual ~Transport() = default;

    /** The service if it is there now, else null. */
    virtual sp<IBinder> find(const String16& name) = 0;
    /** The service, waiting up to `time` for it; null if none came. */
    virtual sp<IBinder> waitFor(const String16& name, std::chrono::milliseconds time) = 0;
    /** Makes an object of this process callable under a name; as IServiceManager::addService. */
    virtual status_t publish(const String16& name, const sp<BBinder>& object, const ServiceTraits& traits) = 0;
    /** Where services are looked for, as a line of the log ends: "in PATH"; empty where nothing is looked for. */
    virtual std::string place() const = 0;
    /** The names of the services that have one of these dump priorities, where a transport knows those. */
    virtual Vector<String16> names(int dumpPriorities) = 0;

    /**
     * Starts serving calls to what is published, now and later. May be called again.
     *
     * @return false, with a line in the log, when there is no thread for it; publish() then tries again, and fails as
     * well
     */
    virtual bool serve() = 0;
};

} // namespace android
