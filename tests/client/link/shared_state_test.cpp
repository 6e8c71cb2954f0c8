// What the library keeps may be set and read by several threads at once; ThreadSanitizer sees whether it may.

#include "client/ClientTest.h"

#include <kelutv/KeluVbiManager.h>
#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_factory.h>

#include <atomic>
#include <functional>
#include <future>
#include <thread>

namespace kelutv::test {
namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 50;

std::atomic<int> gDelivered{0};

void takeEvent(unsigned int, void*, unsigned int, void*) { ++gDelivered; }
void takeData(unsigned int, void*, unsigned int) { ++gDelivered; }

class SharedState : public ::testing::Test {
protected:
    SharedState() { link().service().reply(replyOf({0})); }

    /** Runs `work` with the numbers from 1, each on a thread of its own, all from the same moment. */
    static void atOnce(const std::function<void(int)>& work) {
        std::promise<void> start;
        const std::shared_future<void> started(start.get_future());
        std::vector<std::thread> threads;
        for (int number = 1; number <= kThreads; ++number) {
            threads.emplace_back([&, number] {
                started.wait();
                for (int round = 0; round < kRounds; ++round) {
                    work(number);
                }
            });
        }
        start.set_value();
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
};

TEST_F(SharedState, thePatternIsOneThatWasSet) {
    std::atomic<int> others{0};
    linux_tv_Factory_setWBWhitePattern(1);
    atOnce([&](int number) {
        linux_tv_Factory_setWBWhitePattern(number);
        const int pattern = linux_tv_Factory_getWBWhitePattern();
        others += pattern >= 1 && pattern <= kThreads ? 0 : 1;
    });
    EXPECT_EQ(others, 0);
    linux_tv_Factory_setWBWhitePattern(9);
    EXPECT_EQ(linux_tv_Factory_getWBWhitePattern(), 9);
}

TEST_F(SharedState, theEventCallbackMayChangeDuringDelivery) {
    atOnce([](int number) {
        android::TVBaseClient::registCallback(number % 2 == 0 ? takeEvent : nullptr);
        android::TVBaseClient::eventNotify(1, nullptr, 0, nullptr);
    });
    gDelivered = 0;
    android::TVBaseClient::registCallback(takeEvent);
    android::TVBaseClient::eventNotify(1, nullptr, 0, nullptr);
    EXPECT_EQ(gDelivered, 1);
    android::TVBaseClient::registCallback(nullptr);
}

TEST_F(SharedState, theDataCallbackMayChangeDuringDelivery) {
    KeluVbiManager* const manager = KeluVbiManager::instance();
    atOnce([manager](int number) {
        unsigned int block[] = {0};
        if (number % 2 == 0) {
            manager->RegistVBIDataCallback(takeData);
        } else {
            manager->UnRegistVBIDataCallback();
        }
        manager->VbiDataCallback(1, block, sizeof block);
    });
    gDelivered = 0;
    unsigned int block[] = {0};
    manager->RegistVBIDataCallback(takeData);
    manager->VbiDataCallback(1, block, sizeof block);
    EXPECT_EQ(gDelivered, 1);
    manager->UnRegistVBIDataCallback();
}

} // namespace
} // namespace kelutv::test
