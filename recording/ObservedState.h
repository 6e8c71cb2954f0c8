#pragma once

#include "recording/Line.h"
#include "wire/Interface.h"
#include "wire/codec/Request.h"

#include <optional>

namespace kelutv::recording {

/** What a call tells of one thing that the television keeps. */
struct ObservedState {
    const wire::StateKey* key;
    wire::Values indexes;
    /** Without the zeros that only fill up a block. */
    wire::Values values;
    /** The call gave it the values; else it found them. */
    bool isSet;
};

/** Nothing for a call that failed, or that has to do with nothing that is kept. @param reply its bytes; nothing when
 * none came */
std::optional<ObservedState> observedState(const wire::Request& request, const std::optional<Bytes>& reply);

} // namespace kelutv::recording
