#pragma once

#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/snapshot/Readings.h"

#include <string>

namespace kelutv::tool {

/** What a reading gave. */
struct StateRead {
    /** The state with its keys, or the operation with its arguments where it reads none. */
    std::string state;
    /** A list: of a state what is kept, else the result and the outputs of the operation. Null when it was refused. */
    Json values;
    /** Why it was refused; empty when it was not. */
    std::string refusal;
    /** The service's result word; null when there was none. */
    Json result;
};

/** Asks the service. @throws LinkError when the request did not get through */
StateRead readState(const Reading& reading);

} // namespace kelutv::tool
