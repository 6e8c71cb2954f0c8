#include "platform/droid/ProcessCounts.h"
#include "platform/droid/sockets/RawSocket.h"
#include "simulator/HostileRequests.h"
#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"
#include "torture/Report.h"
#include "torture/Size.h"
#include "torture/processes/ForkedProcess.h"
#include "torture/processes/ProcessMemory.h"

#include <gtest/gtest.h>

#include <kelutv/linux_kelutv_audio.h>

#include <binder/IServiceManager.h>
#include <binder/Parcel.h>

#include <list>

namespace kelutv::test {
namespace {

constexpr int kProcesses = 4;
/** Of so many messages one goes past the runtime, over a connection of its own. */
constexpr int kRequestsForAPacket = 50;
/** What the television's memory may differ by, in KiB: what clients may store in it, and its allocator's arenas. */
constexpr std::size_t kMemory = 2048 + 4096;

void sendPacket(const std::string& path, HostileRequests& requests) {
    try {
        sendRaw(rawConnection(path), requests.nextPacket());
    } catch (const std::exception&) {
        // Refused, since so many connections were not looked at yet.
    }
}

void sendRequest(const android::sp<android::IBinder>& service, HostileRequests& requests) {
    const Bytes request = requests.next();
    android::Parcel data;
    data.setData(request.data(), request.size());
    android::Parcel reply;
    service->transact(android::IBinder::FIRST_CALL_TRANSACTION, data, &reply);
}

void attack(const std::string& path, unsigned int seed, int messages) {
    HostileRequests requests(seed);
    const android::sp<android::IBinder> service =
        android::defaultServiceManager()->getService(android::String16("TVBaseService"));
    for (int i = 0; i < messages; ++i) {
        i % kRequestsForAPacket == 0 ? sendPacket(path, requests) : sendRequest(service, requests);
    }
}

class SoakHostile : public ::testing::Test {
protected:
    SoakHostile() : mTelevision(startSimulator({})) {
        if (!mTelevision->output().waitFor("ready")) {
            throw std::runtime_error("the television did not get ready: " + mTelevision->error().text());
        }
    }

    void attack(int messages) {
        std::list<ForkedProcess> peers;
        for (unsigned int seed = 1; seed <= kProcesses; ++seed) {
            peers.emplace_back([this, seed, messages] {
                test::attack(mRuntimeDir.path() + "/services/TVBaseService", mSeed + seed, messages / kProcesses);
            });
        }
        for (ForkedProcess& peer : peers) {
            EXPECT_EQ(peer.wait(std::chrono::hours(1)), 0) << peer.text();
        }
        mSeed += kProcesses;
    }

    pid_t television() const { return mTelevision->pid(); }

    const RuntimeDir mRuntimeDir;
    const std::unique_ptr<ChildProcess> mTelevision;
    unsigned int mSeed = 0;
};

TEST_F(SoakHostile, messagesLeaveTheTelevisionAsItWas) {
    const int messages = ofSize(4'000, 200'000, 10'000'000);
    attack(messages / 10);
    const ProcessCounts before = settledCountsOf(television());
    const std::size_t memory = memoryOf(television());
    attack(messages);
    EXPECT_TRUE(fallsTo(before, television())) << "before: " << before << ", after: " << countsOf(television());
    const std::size_t memoryAfter = memoryOf(television());
    report("%d hostile messages: the television has %zu KiB before and %zu KiB afterwards", messages, memory,
           memoryAfter);
#ifndef KELUTV_MEMORY_UNKNOWN
    EXPECT_LE(memoryAfter, memory + kMemory);
#endif
    ForkedProcess client([] {
        const bool served = linux_tv_Audio_setVolume(0, 35) == 0 && linux_tv_Audio_getVolume(0) == 35;
        std::_Exit(served ? EXIT_SUCCESS : EXIT_FAILURE);
    });
    EXPECT_EQ(client.wait(), 0) << client.text();
}

} // namespace
} // namespace kelutv::test
