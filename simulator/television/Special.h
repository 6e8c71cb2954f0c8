#pragma once

#include "simulator/television/Equipment.h"
#include "wire/codec/Reply.h"
#include "wire/codec/Request.h"

namespace kelutv::simulator {

/** Does what a request says; the request has been read to its end. */
using Handler = wire::Reply (*)(Equipment& equipment, const wire::Request& request);

/** How a command is carried out that does more than store and return; null for every other. */
Handler specialHandler(const wire::Request& request);

} // namespace kelutv::simulator
