#include "RawSocket.h"
#include "platform/droid/Calls.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/ProcessCounts.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"

#include "socket/Sanitizers.h"

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using android::IBinder;
using android::NO_ERROR;
using android::sp;

constexpr rlim_t kDescriptors = 4096;
/** Than a thread of the service stays when it has nothing to do. */
constexpr std::chrono::milliseconds kLongerThanIdle{400};

/** How much a process has of some kind of memory, as the system calls it, in KiB. */
long memoryOf(pid_t process, const std::string& kind) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(kind + ":", 0) == 0) {
            return std::stol(line.substr(kind.size() + 1));
        }
    }
    return 0;
}

/** With as many descriptors as it takes, here and in the service. */
class IdleClients : public DroidTest {
protected:
    IdleClients() {
        ::getrlimit(RLIMIT_NOFILE, &mBefore);
        const rlimit more{std::max(kDescriptors, mBefore.rlim_cur), mBefore.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &more);
    }
    ~IdleClients() override { ::setrlimit(RLIMIT_NOFILE, &mBefore); }

    /** Connections that have been used once. */
    std::vector<kq::UniqueFd> answeredClients(size_t number) const {
        std::vector<kq::UniqueFd> clients;
        while (clients.size() < number) {
            clients.push_back(rawConnection(pathOf("peer")));
            sendRaw(clients.back(), message(head(4, kEcho), replyOf({1})));
            EXPECT_EQ(receiveRaw(clients.back()), message(head(4, kEcho), replyOf({1})));
        }
        return clients;
    }

    /** As many calls as a thread is kept after; all are sent first, so that there is no pause. */
    static void useConstantly(const kq::UniqueFd& client) {
        constexpr int kCalls = 100;
        for (int calls = 0; calls < kCalls; ++calls) {
            ASSERT_TRUE(sendRaw(client, head(0, kEcho)));
        }
        for (int calls = 0; calls < kCalls; ++calls) {
            ASSERT_EQ(receiveRaw(client), head(0, kEcho));
        }
    }

private:
    rlimit mBefore{};
};

TEST_F(IdleClients, proxiesThatNobodyUsesHinderNoCall) {
    const Peer peer;
    std::vector<sp<IBinder>> idle;
    for (int i = 0; i < 1024; ++i) {
        idle.push_back(service("peer"));
        ASSERT_NE(idle.back(), nullptr) << i;
    }
    EXPECT_EQ(call(peer.binder(), kEcho, replyOf({7})).bytes, replyOf({7}));
    EXPECT_TRUE(fallsTo({2048, 8}, peer.pid())) << countsOf(peer.pid());
}

TEST_F(IdleClients, costADescriptorEachAndNothingElse) {
    const Peer peer;
    const sp<IBinder> binder = peer.binder();
    ASSERT_EQ(call(binder, kEcho).status, NO_ERROR);
    // What the allocator reserves for threads it keeps; the first ones bring that in.
    ASSERT_EQ(answeredClients(200).size(), 200u);
    const ProcessCounts before = settledCountsOf(peer.pid());
    const long spaceBefore = memoryOf(peer.pid(), "VmSize");
    const std::vector<kq::UniqueFd> clients = answeredClients(200);
    EXPECT_TRUE(fallsTo({before.descriptors + 200, before.threads + 1}, peer.pid())) << countsOf(peer.pid());
    EXPECT_LT(memoryOf(peer.pid(), "VmSize") - spaceBefore, 256 * 1024) << "KiB";
    EXPECT_EQ(call(binder, kEcho, replyOf({7})).bytes, replyOf({7}));
}

TEST_F(IdleClients, takeLittleMemoryAndNoThreadOfTheService) {
    constexpr size_t kClients = 100;
    // A buffer that each kept would be a page at the least.
    constexpr long kPageKiB = 4;
    const Peer peer;
    ASSERT_EQ(call(peer.binder(), kEcho).status, NO_ERROR);
    const ProcessCounts before = settledCountsOf(peer.pid());
    std::vector<sp<IBinder>> clients;
    // Threads that come and go take memory as well, though not each time.
    long leastGrowth = std::numeric_limits<long>::max();
    for (int time = 0; time < 8; ++time) {
        const long memoryBefore = memoryOf(peer.pid(), "RssAnon");
        for (size_t added = 0; added < kClients; ++added) {
            clients.push_back(peer.binder());
            ASSERT_EQ(call(clients.back(), kEcho, replyOf({1})).bytes, replyOf({1}));
        }
        leastGrowth = std::min(leastGrowth, memoryOf(peer.pid(), "RssAnon") - memoryBefore);
    }
    EXPECT_TRUE(fallsTo({before.descriptors + 2 * clients.size(), before.threads}, peer.pid()))
        << countsOf(peer.pid()) << ", before " << before;
    if (!kq::kSanitized) {
        EXPECT_LT(leastGrowth, kPageKiB * static_cast<long>(kClients));
    }
}

TEST_F(IdleClients, keepAThreadAfterConstantUseFourOfThem) {
    const Peer peer;
    const sp<IBinder> binder = peer.binder();
    ASSERT_EQ(call(binder, kEcho).status, NO_ERROR);
    const ProcessCounts before = settledCountsOf(peer.pid());
    {
        const std::vector<kq::UniqueFd> clients = answeredClients(6);
        const ProcessCounts kept{before.descriptors + 6, before.threads + 4};
        const auto someEnd = [&] { return countsOf(peer.pid()).threads < kept.threads; };
        // Again, since a pause that a busy computer makes is one in the use, too.
        EXPECT_TRUE(eventually([&] {
            for (const kq::UniqueFd& client : clients) {
                useConstantly(client);
            }
            return fallsTo(kept, peer.pid()) && !eventually(someEnd, kLongerThanIdle);
        })) << countsOf(peer.pid());
        EXPECT_EQ(call(binder, kEcho, replyOf({7})).bytes, replyOf({7}));
    }
    EXPECT_TRUE(fallsTo(before, peer.pid())) << countsOf(peer.pid()) << ", not " << before;
    EXPECT_EQ(call(binder, kEcho, replyOf({7})).bytes, replyOf({7}));
}

TEST_F(IdleClients, thatHaveGoneLeaveNothing) {
    const Peer peer;
    const sp<IBinder> binder = peer.binder();
    ASSERT_EQ(call(binder, kEcho).status, NO_ERROR);
    const ProcessCounts before = settledCountsOf(peer.pid());
    for (int i = 0; i < 1000; ++i) {
        const kq::UniqueFd client = rawConnection(pathOf("peer"));
        ASSERT_TRUE(sendRaw(client, head(0, kEcho)));
        ASSERT_EQ(receiveRaw(client), head(0, kEcho)) << i;
    }
    EXPECT_TRUE(fallsTo(before, peer.pid())) << countsOf(peer.pid()) << ", not " << before;
    EXPECT_EQ(call(binder, kEcho, replyOf({7})).bytes, replyOf({7}));
}

} // namespace
} // namespace kelutv::test
