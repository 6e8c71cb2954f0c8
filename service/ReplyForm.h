#pragma once

#include "wire/codec/Reply.h"
#include "wire/codec/Request.h"

#include <string>

namespace kelutv::service {

/**
 * What is wrong with the form of a reply by the catalogue, as too few numbers behind the result word are; empty for
 * nothing. The request has been read to its end.
 */
std::string flawOf(const wire::Request& request, const wire::Reply& reply);

/**
 * The reply whose fields hold these values in their order, and the number of them where the catalogue has it lead them.
 * What is missing is not made up, and what is left over stands in a field of its own, so that `flawOf` tells of both.
 */
wire::Reply replyHolding(const wire::Operation& operation, const wire::Values& values);

} // namespace kelutv::service
