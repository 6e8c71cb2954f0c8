#pragma once

#include "wire/Value.h"
#include "wire/events/Event.h"

#include <string>

namespace kelutv::service {

/**
 * The payload of an event that holds these values, one for each of its fields.
 *
 * @throws std::invalid_argument when there are more or fewer, or one is of another kind or too large for its field
 */
std::string payloadOf(const wire::Event& event, const wire::Values& values);

} // namespace kelutv::service
