#pragma once

#include <cstdint>

namespace kelutv::test::scripted {

/** Transactions by which a test steers the scripted service; the television's own requests are transaction 1. */
enum Control : std::uint32_t {
    kRequest = 1,
    kReplyWith = 1000,
    kReplyToCommand,
    kReplyStatus,
    kTakeRequests,
    kHangNext,
    kIsHanging,
    kRelease,
    kExitBeforeReply,
    kExitAfterReply,
    kLastCaller,
};

constexpr char kServiceName[] = "TVBaseService";
constexpr char kReadyLine[] = "registered\n";

} // namespace kelutv::test::scripted
