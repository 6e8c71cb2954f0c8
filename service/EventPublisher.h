#pragma once

#include <keluem/publisher.h>

#include <string>

namespace kelutv::service {

/** Publishes the events of a television. May be used from any thread. */
class EventPublisher {
public:
    /** Sends an event to its subscribers. @return why that was not possible, empty when it was sent */
    std::string publish(unsigned int identifier, const std::string& payload);

private:
    keluem::Publisher mPublisher;
};

} // namespace kelutv::service
