#pragma once

#include "simulator/faults/FaultRule.h"
#include "wire/codec/Reply.h"

#include <binder/Parcel.h>

namespace kelutv::simulator {

/** Corrupts a written reply as the effect says; effects that concern other things, or do not fit the reply, do nothing.
 */
void corrupt(const Effect& effect, const wire::Request& request, const wire::Reply& reply, android::Parcel& parcel);

} // namespace kelutv::simulator
