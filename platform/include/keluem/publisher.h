#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace keluem {

#pragma GCC visibility push(default)

/** Largest payload of an event, in bytes. */
constexpr std::size_t kMaxPayload = 65536;

/** Most events that wait for one slow subscriber. */
constexpr std::size_t kMaxQueuedEvents = 1024;

/** Most payload bytes that wait for one slow subscriber. */
constexpr std::size_t kMaxQueuedPayload = 1024 * 1024;

/** Most subscribers that a publisher serves; the others get nothing, and each event counts as dropped for them. */
constexpr std::size_t kMaxSubscribers = 256;

/**
 * Sends events to every process of this user that has a listener for their module.
 *
 * Events of one publisher reach each subscriber in the order of their publication. A subscriber that does not keep up
 * holds up nobody: its events wait in a queue of its own, bounded by `kMaxQueuedEvents` and `kMaxQueuedPayload`, from
 * which the oldest are dropped. So do those for a subscriber that cannot be reached for now, for want of descriptors
 * for instance; the publisher's thread tries again until it is reached. A subscriber's end is noticed at once, with or
 * without a publication. All members may be called from any thread and never throw.
 */
class Publisher {
public:
    Publisher() noexcept;

    /** Closes the connections; events still queued for slow subscribers are dropped. */
    ~Publisher();

    Publisher(const Publisher&) = delete;
    Publisher& operator=(const Publisher&) = delete;

    /**
     * Sends one event; never waits for a subscriber. The first call opens the runtime directory.
     * @param eventId identifier of the event; its upper 16 bits name the module
     * @param payload copied before the return; may be null when `length` is 0
     * @param length in bytes, 0 to `kMaxPayload`
     * @return 0 when every subscriber of the module was sent the event or has it queued (none at all included); -EINVAL
     *         for a null payload with a length, -EMSGSIZE for too long a payload, -EPERM in the child of a fork,
     * -EACCES when the runtime directory (KQDROID_RUNTIME_DIR) cannot be used, -EMFILE, -EAGAIN, -ENOMEM or another
     *         negative errno value when the system gives no descriptor, thread or memory. When only new subscribers
     *         cannot be looked for, those known are sent the event all the same.
     */
    int publish(unsigned int eventId, const void* payload, std::size_t length) noexcept;

    /**
     * Number of events dropped so far because a subscriber did not keep up, could not be reached or is beyond
     * `kMaxSubscribers`. Counts each subscriber by itself, and for one that has not said yet which modules it wants
     * only when it does.
     */
    std::uint64_t droppedEvents() const noexcept;

private:
    class Implementation;
    std::unique_ptr<Implementation> mImplementation;
};

#pragma GCC visibility pop

} // namespace keluem
