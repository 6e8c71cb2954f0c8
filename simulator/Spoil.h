#pragma once

#include "FaultRule.h"
#include "Reply.h"

#include <binder/Parcel.h>

namespace simulator {

/** Does to a written reply what the effect says; the effects that leave the bytes alone, and those that do not fit, do
 *  nothing. */
void spoil(const Effect& effect, const Request& request, const Reply& reply, android::Parcel& parcel);

} // namespace simulator
