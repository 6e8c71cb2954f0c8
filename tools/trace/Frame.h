#pragma once

#include <atomic>
#include <climits>
#include <cstddef>
#include <cstdint>

/** How what was seen travels from a program to the tool, through a named pipe. */
namespace kelutv::trace {

/** Name the pipes of a trace and of a recording in the environment of a program. */
constexpr const char* kTraceVariable = "KELUTV_TRACE_PIPE";
constexpr const char* kRecordVariable = "KELUTV_RECORD_PIPE";

/** What a record tells of; each is a bit of what the tool wants. */
enum class RecordKind : std::uint32_t {
    /** The bytes of the request and of the reply follow. */
    Transaction = 1,
    /** The payload follows. */
    Event = 2,
    /** The process was told that the service is gone. */
    Loss = 4,
    /** The process is there. */
    Process = 8,
};

/** What the file is called that lies beside the pipe, behind the name of that: it is mapped by all. */
constexpr const char* kNotesSuffix = ".notes";

/** What the pipe's name has behind it while who reads looks whether it may end. */
constexpr const char* kEndingSuffix = ".ending";

struct Notes {
    /** What was left out since the pipe was full and the tool did not read, or could not be opened. */
    std::atomic<std::uint32_t> leftOut;
    /** The kinds of records that the tool wants now. */
    std::atomic<std::uint32_t> wanted;
    /** How many milliseconds a program waits for a tool that reads slowly; for one that does not read, once. */
    std::atomic<std::int32_t> patience;
};
static_assert(std::atomic<std::uint32_t>::is_always_lock_free);

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

/** Leads a record. */
struct RecordHeader {
    /** Since the epoch. */
    std::int64_t startNanoseconds;
    /** The start by the clock that nobody sets. */
    std::int64_t beginNanoseconds;
    std::int64_t durationNanoseconds;
    /** Of a transaction its status, of an event its identifier. */
    std::int32_t value;
    std::uint32_t requestSize;
    std::uint32_t replySize;
    RecordKind kind;
};

} // namespace kelutv::trace
