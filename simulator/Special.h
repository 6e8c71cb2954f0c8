#pragma once

#include "Equipment.h"
#include "Reply.h"
#include "Request.h"

namespace simulator {

/** Does what a request says; the request has been read to its end. */
using Handler = Reply (*)(Equipment& equipment, const Request& request);

/** How a command is carried out that does more than store and return; null for every other. */
Handler specialHandler(const Request& request);

} // namespace simulator
