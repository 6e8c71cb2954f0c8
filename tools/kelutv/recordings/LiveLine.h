#pragma once

#include "recording/Line.h"
#include "tools/kelutv/trace/TracePipe.h"

#include <chrono>
#include <cstdint>

namespace kelutv::tool {

/** The header of a section that begins now, as this machine and its platform have it. */
recording::Header headerOfNow();

/** @param sequence of the line @param begin time 0 of the section, by the clock that nobody sets */
recording::Line lineOf(const TracedTransaction& traced, std::int64_t sequence, std::chrono::nanoseconds begin);

/** A recorded transaction as if it had come just now. */
TracedTransaction tracedOf(const recording::Transaction& transaction);

} // namespace kelutv::tool
