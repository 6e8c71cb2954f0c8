#include "platform/droid/ProcessCounts.h"
#include "support/RuntimeDir.h"
#include "torture/Report.h"
#include "torture/Size.h"
#include "torture/processes/ForkedProcess.h"
#include "torture/processes/ProcessMemory.h"
#include "torture/processes/Shared.h"

#include <gtest/gtest.h>

#include <kelutv/KeluVbiManager.h>
#include <kelutv/linux_kelutv_audio.h>
#include <kelutv/linux_kelutv_notify.h>

#include <atomic>
#include <filesystem>
#include <list>
#include <set>

namespace kelutv::test {
namespace {

constexpr int kVolume = 35;
constexpr int kWarmUp = 20;
/** What a service's memory may differ by, in KiB. Its allocator keeps an arena for each of some threads at a time. */
constexpr std::size_t kMemoryOfOne = 1024;
constexpr std::size_t kMemoryOfMany = 4096;

struct Tally {
    std::atomic<int> arrived{0};
    std::atomic<int> right{0};
    std::atomic<bool> released{false};
};

/** Teletext is no module that the library subscribes to: a publisher that meets a client then has nothing for it. */
bool haveUnwantedEventsPublished() {
    KeluVbiManager* const vbi = KeluVbiManager::instance();
    return vbi->Init() == 0 && vbi->Open() == 0 &&
           vbi->RegistVBIDataCallback([](unsigned int, void*, unsigned int) {}) == 0 &&
           vbi->UnRegistVBIDataCallback() == 0;
}

std::set<std::string> filesBelow(const std::string& folder) {
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        files.insert(entry.path());
    }
    return files;
}

/** Short clients of a simulated television: each connects, subscribes, calls and exits. */
class SoakClients : public ::testing::Test {
protected:
    SoakClients() : mTelevision({KELUTV_SIMULATOR}, captured()) {
        if (!mTelevision.output().waitFor("ready")) {
            throw std::runtime_error("the television did not get ready: " + mTelevision.error().text());
        }
        ForkedProcess first([] { linux_tv_Audio_setVolume(0, kVolume); });
        EXPECT_EQ(first.wait(), 0);
        for (int i = 0; i < kWarmUp; ++i) {
            EXPECT_EQ(startClient()->wait(), 0);
        }
        mTally.renew();
        mFiles = filesBelow(mRuntimeDir.path());
        mBefore = settledCountsOf(mTelevision.pid());
        mMemory = memoryOf(mTelevision.pid());
    }

    static ChildProcess::Options captured() {
        ChildProcess::Options options;
        options.captureOutput = true;
        options.captureError = true;
        return options;
    }

    std::unique_ptr<ForkedProcess> startClient() {
        return std::make_unique<ForkedProcess>([this] {
            linux_tv_registerCallbackFunc([](int, void*, unsigned int, void*) {});
            mTally->right += haveUnwantedEventsPublished() && linux_tv_Audio_getVolume(0) == kVolume ? 1 : 0;
        });
    }

    /** A client that has connected waits for the others before it calls on. */
    std::unique_ptr<ForkedProcess> startWaitingClient() {
        return std::make_unique<ForkedProcess>([this] {
            linux_tv_registerCallbackFunc([](int, void*, unsigned int, void*) {});
            ++mTally->arrived;
            eventually([this] { return mTally->released.load(); });
            mTally->right += linux_tv_Audio_getVolume(0) == kVolume ? 1 : 0;
        });
    }

    void expectAsBefore(const std::string& what, [[maybe_unused]] std::size_t slack) {
        EXPECT_TRUE(fallsTo(mBefore, mTelevision.pid()))
            << "before: " << mBefore << ", after: " << countsOf(mTelevision.pid());
        const std::size_t memory = memoryOf(mTelevision.pid());
        report("%s: the television has %zu KiB before and %zu KiB afterwards", what.c_str(), mMemory, memory);
#ifndef KELUTV_MEMORY_UNKNOWN
        EXPECT_LE(memory, mMemory + slack);
#endif
        EXPECT_TRUE(eventually([&] { return filesBelow(mRuntimeDir.path()) == mFiles; }))
            << ::testing::PrintToString(filesBelow(mRuntimeDir.path()));
    }

    const RuntimeDir mRuntimeDir;
    ChildProcess mTelevision;
    Shared<Tally> mTally;
    std::set<std::string> mFiles;
    ProcessCounts mBefore;
    std::size_t mMemory = 0;
};

TEST_F(SoakClients, oneAfterTheOther) {
    const int clients = ofSize(60, 500, 5000);
    for (int i = 0; i < clients; ++i) {
        const std::unique_ptr<ForkedProcess> client = startClient();
        ASSERT_EQ(client->wait(), 0) << "client " << i << ": " << client->text();
        ASSERT_EQ(mTally->right, i + 1) << "client " << i << ": " << client->text();
    }
    expectAsBefore(std::to_string(clients) + " clients one after the other", kMemoryOfOne);
}

TEST_F(SoakClients, manyAtATime) {
    const int atATime = ofSize(40, 200, 200);
    const int rounds = ofSize(1, 1, 25);
    for (int round = 0; round < rounds; ++round) {
        mTally.renew();
        std::list<std::unique_ptr<ForkedProcess>> clients;
        for (int i = 0; i < atATime; ++i) {
            clients.push_back(startWaitingClient());
        }
        EXPECT_TRUE(eventually([&] { return mTally->arrived == atATime; })) << mTally->arrived << " have connected";
        mTally->released = true;
        for (const std::unique_ptr<ForkedProcess>& client : clients) {
            EXPECT_EQ(client->wait(), 0) << client->text();
        }
        ASSERT_EQ(mTally->right, atATime);
    }
    expectAsBefore(std::to_string(rounds) + " times " + std::to_string(atATime) + " clients", kMemoryOfMany);
}

} // namespace
} // namespace kelutv::test
