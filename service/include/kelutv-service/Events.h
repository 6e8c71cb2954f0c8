#pragma once

#include <kelutv-service/Value.h>

#include <cstdint>
#include <string>

namespace kelutv::service {

/** Publishes events. May be used from any thread. */
class Events {
public:
    Events() = default;
    virtual ~Events() = default;
    Events(const Events&) = delete;
    Events& operator=(const Events&) = delete;

    /**
     * Publishes an event by its name in the catalogue: `volumeChanged` with the channel and the volume.
     *
     * What cannot be sent is said on standard error.
     *
     * @param values one for each field of the payload
     * @throws std::invalid_argument for a name that there is not, and for values that the payload does not take
     */
    void publish(const std::string& name, const Values& values);

    /** Publishes an event that the catalogue does not have. @param payload its bytes */
    virtual void send(std::uint32_t identifier, const std::string& payload) = 0;
};

} // namespace kelutv::service
