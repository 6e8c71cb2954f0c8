#pragma once

#include <sys/epoll.h>

#include <cstddef>
#include <cstdint>

#include "socket/UniqueFd.h"

namespace keluem {

/** Waits until one of many descriptors is ready. Unlike poll it works whatever the limit on descriptors has become. */
class Poller {
public:
    /** Returns 0 or a negative errno value. */
    int open();

    /** Adds a descriptor; `ready()` gives `owner` when one of `events` (EPOLLIN ...) holds. False when it cannot. */
    bool add(int fd, std::uint32_t events, void* owner);
    void change(int fd, std::uint32_t events, void* owner);
    void remove(int fd);

    /**
     * Gives up to `capacity` descriptors that are ready.
     * @param timeoutMs longest time to wait for the first, -1 for no limit
     * @return their number; 0 when the time is over
     */
    std::size_t ready(epoll_event* events, std::size_t capacity, int timeoutMs) const;

private:
    bool control(int operation, int fd, std::uint32_t events, void* owner);

    kq::UniqueFd mEpoll;
};

} // namespace keluem
