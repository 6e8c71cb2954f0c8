#include "RawSocket.h"
#include "platform/droid/Calls.h"
#include "platform/droid/DeathNote.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "platform/droid/peer/PeerService.h"

#include <poll.h>
#include <sys/resource.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::test {
namespace {

using android::FAILED_TRANSACTION;
using android::IBinder;
using android::NO_ERROR;
using android::sp;

constexpr uint32_t kPacket = 64 * 1024;
constexpr uint32_t kLastAnswer = 0x80000000;
constexpr size_t kCallsOfAProcess = 256;
constexpr size_t kCallsInAll = 1024;
constexpr size_t kLargeRequests = 64; // of the largest size, in 64 MiB

/** What is beyond the limits of a server is refused, at once and not as if it were dead. */
class ServerLimits : public DroidTest {
protected:
    void expectAlive(const sp<IBinder>& binder) {
        EXPECT_TRUE(binder->isBinderAlive());
        EXPECT_EQ(mNote->count(), 0);
    }

    sp<IBinder> linked(const Peer& peer) {
        sp<IBinder> binder = peer.binder();
        EXPECT_EQ(binder->linkToDeath(mNote), NO_ERROR);
        return binder;
    }

private:
    const sp<DeathNote> mNote = new DeathNote;
};

TEST_F(ServerLimits, callsOfOneProcess) {
    Peer peer;
    const sp<IBinder> binder = linked(peer);
    std::vector<kq::UniqueFd> held;
    for (size_t i = 0; i < kCallsOfAProcess; ++i) {
        held.push_back(rawConnection(pathOf("peer")));
        ASSERT_TRUE(sendRaw(held.back(), head(0, kHold)));
    }
    ASSERT_TRUE(eventually([&] { return call(binder, kEcho).status != NO_ERROR; }));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(call(binder, kEcho, Bytes(8)).status, FAILED_TRANSACTION);
    EXPECT_EQ(call(binder, kEcho, Bytes(kLargestTransaction)).status, FAILED_TRANSACTION);
    EXPECT_EQ(call(binder, kEcho, Bytes(8)).status, FAILED_TRANSACTION);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    expectAlive(binder);
    // The last of them is one that the limit let in.
    held.pop_back();
    ChildProcess other({kPeerProgram, "closed-streams", "peer"});
    EXPECT_EQ(other.exitCode(), 0) << "another process is hindered";
}

TEST_F(ServerLimits, memoryOfLargeRequests) {
    const Peer peer;
    const sp<IBinder> binder = linked(peer);
    const Bytes largest = message(head(static_cast<uint32_t>(kLargestTransaction), kSum), pattern(kPacket));
    std::vector<kq::UniqueFd> begun;
    for (size_t i = 0; i < kLargeRequests; ++i) {
        begun.push_back(rawConnection(pathOf("peer")));
        ASSERT_TRUE(sendRaw(begun.back(), largest));
    }
    Answer answer{};
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(eventually([&] {
        answer = call(binder, kSum, Bytes(kLargestTransaction));
        return answer.status != NO_ERROR;
    }));
    EXPECT_EQ(answer.status, FAILED_TRANSACTION);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
    EXPECT_EQ(call(binder, kEcho, replyOf({1})).bytes, replyOf({1})) << "small calls are hindered";
    expectAlive(binder);
    for (const kq::UniqueFd& late : begun) {
        EXPECT_EQ(receiveRaw(late), head(0, kSum, kLastAnswer, FAILED_TRANSACTION));
        EXPECT_EQ(receiveRaw(late), Bytes());
    }
    EXPECT_TRUE(eventually([&] { return call(binder, kSum, Bytes(kLargestTransaction)).status == NO_ERROR; }));
}

/** Sets the limit of descriptors, also of processes that are started then, while it exists. */
class DescriptorLimit {
public:
    explicit DescriptorLimit(rlim_t descriptors) {
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &mBefore), 0);
        const rlimit limit{descriptors, mBefore.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    }
    ~DescriptorLimit() { ::setrlimit(RLIMIT_NOFILE, &mBefore); }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;

private:
    rlimit mBefore{};
};

/** Whether the call on this connection is over. */
bool hasAnswer(const kq::UniqueFd& connection) {
    pollfd answer{connection.get(), POLLIN, 0};
    return ::poll(&answer, 1, 0) == 1;
}

TEST_F(ServerLimits, callsInAll) {
    const DescriptorLimit enough(2 * kCallsInAll);
    Peer peer;
    const sp<IBinder> binder = linked(peer);
    ChildProcess::Options options;
    options.captureOutput = true;
    std::vector<std::unique_ptr<ChildProcess>> holders;
    const size_t others = kCallsInAll - 1;
    for (size_t begun = 0; begun < others; begun += kCallsOfAProcess) {
        const std::string count = std::to_string(std::min(kCallsOfAProcess, others - begun));
        holders.push_back(std::make_unique<ChildProcess>(
            std::vector<std::string>{kPeerProgram, "hold", pathOf("peer"), count}, options));
    }
    // Asking is the last call that there is room for, and has its place for a moment longer.
    ASSERT_TRUE(waitUntilHeld(binder, static_cast<int32_t>(others)));
    kq::UniqueFd last;
    Answer answer{};
    ASSERT_TRUE(eventually([&] {
        if (!last || hasAnswer(last)) {
            last = rawConnection(pathOf("peer"));
            EXPECT_TRUE(sendRaw(last, head(0, kHold)));
        }
        answer = call(binder, kEcho);
        return answer.status != NO_ERROR && !hasAnswer(last);
    }));
    EXPECT_EQ(answer.status, FAILED_TRANSACTION);
    EXPECT_EQ(call(binder, kEcho, Bytes(8)).status, FAILED_TRANSACTION);
    expectAlive(binder);
}

/** A service with few descriptors: half of them are its program's, and of the rest half is one process's. */
class FewDescriptors : public ServerLimits {
protected:
    static constexpr size_t kDescriptors = 64;
    static constexpr size_t kOfAProcess = kDescriptors / 2 / 2;

    FewDescriptors() {
        const DescriptorLimit few(kDescriptors);
        peer.emplace();
    }

    std::optional<Peer> peer;
};

bool isRefusal(const Bytes& packet) {
    return packet.size() == greeting().size() &&
           Bytes(packet.begin() + 8, packet.begin() + 12) == replyOf({FAILED_TRANSACTION});
}

TEST_F(FewDescriptors, connectionsOfOneProcess) {
    const sp<IBinder> binder = linked(*peer);
    ASSERT_EQ(call(binder, kEcho).status, NO_ERROR);
    std::vector<kq::UniqueFd> taken;
    // The life line and the call have one each.
    for (size_t i = 2; i < kOfAProcess; ++i) {
        taken.push_back(rawConnection(pathOf("peer")));
    }
    {
        const kq::UniqueFd refused = rawSilentConnection(pathOf("peer"));
        EXPECT_TRUE(isRefusal(receiveRaw(refused)));
        EXPECT_EQ(receiveRaw(refused), Bytes());
    }
    const sp<IBinder> late = service("peer");
    ASSERT_NE(late, nullptr);
    EXPECT_EQ(call(late, kEcho).status, FAILED_TRANSACTION);
    EXPECT_EQ(call(late, kEcho, Bytes(kLargestTransaction)).status, FAILED_TRANSACTION);
    EXPECT_EQ(call(binder, kEcho, replyOf({1})).bytes, replyOf({1}));
    expectAlive(binder);
    ChildProcess other({kPeerProgram, "closed-streams", "peer"});
    EXPECT_EQ(other.exitCode(), 0) << "another process is hindered";
    taken.clear();
    EXPECT_TRUE(eventually([&] { return call(late, kEcho).status == NO_ERROR; }));
}

TEST_F(FewDescriptors, ofWhichTheProgramHasTakenAll) {
    const sp<IBinder> binder = linked(*peer);
    ASSERT_EQ(call(binder, kFillTable).status, NO_ERROR);
    for (int round = 0; round < 3; ++round) {
        const kq::UniqueFd refused = rawSilentConnection(pathOf("peer"));
        EXPECT_TRUE(isRefusal(receiveRaw(refused)));
    }
    const sp<IBinder> late = service("peer");
    ASSERT_NE(late, nullptr);
    EXPECT_EQ(call(late, kEcho).status, FAILED_TRANSACTION);
    EXPECT_EQ(call(binder, kEcho, replyOf({1})).bytes, replyOf({1}));
    expectAlive(binder);
}

TEST_F(FewDescriptors, ofTheCallerAreItsOwnTrouble) {
    const sp<IBinder> binder = linked(*peer);
    rlimit none{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &none), 0);
    const rlimit before = std::exchange(none, rlimit{0, none.rlim_max});
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const Answer answer = call(binder, kEcho);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(answer.status, -EMFILE);
    EXPECT_EQ(call(binder, kEcho, replyOf({1})).bytes, replyOf({1}));
    expectAlive(binder);
}

} // namespace
} // namespace kelutv::test
