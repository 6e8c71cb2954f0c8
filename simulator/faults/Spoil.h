#pragma once

#include "simulator/faults/FaultRule.h"
#include "wire/codec/Reply.h"

#include <binder/Parcel.h>

namespace kelutv::simulator {

/** Does to a written reply what the effect says; the effects that leave the bytes alone, and those that do not fit, do
 *  nothing. */
void spoil(const Effect& effect, const wire::Request& request, const wire::Reply& reply, android::Parcel& parcel);

} // namespace kelutv::simulator
