#pragma once

#include "recording/Line.h"
#include "wire/codec/Request.h"

#include <string>

namespace kelutv::tool {

constexpr double kNanosecondsOfSecond = 1e9;

/** The item or command of a request, its number where it has no name, or `malformed`. */
std::string nameOf(const wire::Request& request);

/** A reply in words, or why none came. */
std::string replyText(const wire::Request& request, const recording::Transaction& transaction);

/** Nanoseconds since 1970 at which a section starts; 0 when the header does not say a time from 1970 to 2150. */
std::int64_t startOf(const recording::Header& header);

} // namespace kelutv::tool
