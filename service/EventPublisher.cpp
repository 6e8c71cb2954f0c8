#include "service/EventPublisher.h"

#include <cstdio>
#include <cstring>

namespace kelutv::service {

namespace {

std::string nameOf(unsigned int identifier) {
    char text[32];
    std::snprintf(text, sizeof(text), "event 0x%X", identifier);
    return text;
}

} // namespace

std::string EventPublisher::publish(unsigned int identifier, const std::string& payload) {
    const int status = mPublisher.publish(identifier, payload.data(), payload.size());
    return status == 0 ? "" : nameOf(identifier) + " was not published: " + std::strerror(-status);
}

} // namespace kelutv::service
