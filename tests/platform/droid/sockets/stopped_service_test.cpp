#include "RawSocket.h"
#include "platform/droid/Calls.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "platform/droid/peer/PeerService.h"
#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"
#include "support/Capture.h"

#include <binder/IServiceManager.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <optional>

namespace kelutv::test {
namespace {

using android::FAILED_TRANSACTION;
using android::IBinder;
using android::NO_ERROR;
using android::sp;
using android::String16;
using Clock = std::chrono::steady_clock;

android::status_t publish(const char* name) {
    return android::defaultServiceManager()->addService(String16(name), new PeerService);
}

/** A service that takes no connections, as one that is stopped, with a queue for one, which waits there. */
class StoppedService : public DroidTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(kq::RuntimeDirectory::open("services"));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        pathOf("stopped").copy(address.sun_path, sizeof(address.sun_path) - 1);
        mListener = kq::UniqueFd(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
        ASSERT_EQ(::bind(mListener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        ASSERT_EQ(::listen(mListener.get(), 0), 0);
    }

    void fillQueue() { mWaiting = kq::connectTo(pathOf("stopped")); }
    void listenNoMore() { mListener = kq::UniqueFd(); }

private:
    kq::UniqueFd mListener;
    kq::UniqueFd mWaiting;
};

TEST_F(StoppedService, isFoundWhileItsQueueHasRoom) { EXPECT_NE(service("stopped"), nullptr); }

TEST_F(StoppedService, isLookedForDuringABoundedTime) {
    fillQueue();
    const LogCapture log;
    const auto start = Clock::now();
    EXPECT_EQ(android::defaultServiceManager()->getService(String16("stopped")), nullptr);
    EXPECT_EQ(android::defaultServiceManager()->checkService(String16("stopped")), nullptr);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(4));
    EXPECT_TRUE(std::filesystem::exists(pathOf("stopped")));
}

TEST_F(StoppedService, keepsItsNameAndHoldsNobodyUp) {
    fillQueue();
    const LogCapture log;
    const auto start = Clock::now();
    EXPECT_EQ(publish("stopped"), android::ALREADY_EXISTS);
    { const RawService dead(pathOf("dead")); }
    EXPECT_EQ(service("dead"), nullptr);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(3));
    EXPECT_TRUE(std::filesystem::exists(pathOf("stopped")));
    EXPECT_FALSE(std::filesystem::exists(pathOf("dead")));
}

TEST_F(StoppedService, callsOnAProxyOfItFailWithoutBeingDead) {
    const sp<IBinder> binder = service("stopped");
    ASSERT_NE(binder, nullptr);
    fillQueue();
    EXPECT_EQ(call(binder, kEcho).status, FAILED_TRANSACTION);
    listenNoMore();
    EXPECT_EQ(call(binder, kEcho).status, android::DEAD_OBJECT);
}

TEST_F(StoppedService, nameIsLeftAloneWithoutTheLock) {
    listenNoMore();
    const kq::UniqueFd lock(::open(pathOf(".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    ASSERT_EQ(::flock(lock.get(), LOCK_EX), 0);
    LogCapture log;
    const auto start = Clock::now();
    EXPECT_EQ(service("stopped"), nullptr);
    EXPECT_LT(publish("stopped"), NO_ERROR);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
    EXPECT_TRUE(std::filesystem::exists(pathOf("stopped")));
    EXPECT_EQ(log.take().at(0).text, "locking " + pathOf(".lock") + ": Resource temporarily unavailable");
    ::flock(lock.get(), LOCK_UN);
    EXPECT_EQ(service("stopped"), nullptr);
    EXPECT_FALSE(std::filesystem::exists(pathOf("stopped")));
}

TEST_F(DroidTest, oneWayCallWaitsForAServiceThatDoesNotReadForABoundedTime) {
    const Peer peer;
    const sp<IBinder> binder = peer.binder();
    ASSERT_EQ(call(binder, kEcho).status, NO_ERROR);
    ASSERT_EQ(::kill(peer.pid(), SIGSTOP), 0);
    android::status_t status = NO_ERROR;
    auto longest = Clock::duration::zero();
    for (int i = 0; i < 100 && status == NO_ERROR; ++i) {
        const auto start = Clock::now();
        status = call(binder, kNote, Bytes(60'000), IBinder::FLAG_ONEWAY).status;
        longest = std::max(longest, Clock::now() - start);
    }
    EXPECT_EQ(status, FAILED_TRANSACTION);
    EXPECT_GE(longest, std::chrono::milliseconds(900));
    EXPECT_LT(longest, std::chrono::seconds(4));
    ASSERT_EQ(::kill(peer.pid(), SIGCONT), 0);
    EXPECT_EQ(call(binder, kNote, replyOf({7}), IBinder::FLAG_ONEWAY).status, NO_ERROR);
    EXPECT_EQ(call(binder, kEcho, replyOf({7})).bytes, replyOf({7}));
}

} // namespace
} // namespace kelutv::test
