#pragma once

#include <atomic>
#include <climits>
#include <cstddef>
#include <cstdint>

/** How traced transactions travel from a program to the tool, through a named pipe. */
namespace kelutv::trace {

/** Names the pipe in the environment of a traced program. */
constexpr const char* kPipeVariable = "KELUTV_TRACE_PIPE";

/**
 * What the file is called that lies beside the pipe, behind the name of that: a counter, shared by all, of the
 * transactions that were left out since the pipe was full and the tool did not read.
 */
constexpr const char* kLeftOutSuffix = ".leftout";
using LeftOut = std::atomic<std::uint32_t>;
static_assert(LeftOut::is_always_lock_free);

/** Leads each piece of a record. A whole frame is written at once, so that those of several writers do not mix. */
struct FrameHeader {
    std::int32_t process;
    std::int32_t thread;
    /** Where in the record this piece belongs; 0 begins a new one. */
    std::uint32_t offset;
    std::uint32_t length;
    /** The size of the whole record. */
    std::uint32_t total;
};

constexpr std::size_t kFrameCapacity = PIPE_BUF;
constexpr std::size_t kPieceCapacity = kFrameCapacity - sizeof(FrameHeader);

/** Leads a record; the bytes of the request and of the reply follow. */
struct RecordHeader {
    /** Since the epoch. */
    std::int64_t startNanoseconds;
    std::int64_t durationNanoseconds;
    std::int32_t status;
    std::uint32_t requestSize;
    std::uint32_t replySize;
    std::uint32_t reserved;
};

} // namespace kelutv::trace
