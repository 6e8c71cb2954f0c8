#pragma once

#include <cstddef>
#include <cstdint>

namespace kelutv::test {

/** The largest request or reply. */
constexpr std::size_t kLargestTransaction = 1024 * 1024 - 8 * 1024;

constexpr char kPeerDescriptor[] = "kelutv.test.Peer";
constexpr char kPeerReady[] = "ready\n";

/** What a peer's object does for each transaction code. */
enum PeerCall : std::uint32_t {
    kEcho = 1,    // answers with the request's bytes
    kReplyOfSize, // int32 size: answers with that many bytes of the pattern
    kSum,         // answers with the size of the request and the sum of its bytes
    kPositions,   // answers with the position at which the request came in
    kStatus,      // int32 status: writes to the reply, then fails with the status
    kCaller,      // answers with pid and uid of the caller
    kMeet,        // int32 n: answers 1 once n callers are inside at the same time
    kHold,        // does not answer before kRelease
    kHeld,        // answers with the number of callers that are held
    kRelease,     // lets all held callers go
    kNote,        // int32: remembered
    kNotes,       // answers with all that was remembered, in order
    kForward,     // name, int32 code: answers as the service of that name does
    kFork,        // answers 1 once a child that it forks, and that returns from the call too, is gone; else 0
    kExit,        // ends the process instead of answering
    kFillTable,   // opens descriptors until there are no more, and then calls for kEcho are answered still
    kForkHelper,  // answers with the pid of a child that it forks and that stays; the caller kills it
};

} // namespace kelutv::test
