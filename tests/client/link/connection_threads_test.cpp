#include "support/Capture.h"
#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <kelutv/link/TVBaseClient.h>

#include <gtest/gtest.h>
#include <unistd.h>

#include <future>
#include <set>
#include <thread>
#include <vector>

namespace kelutv::test {
namespace {

using android::TVBaseClient;

constexpr int kThreads = 16;

/** The one test of its program: the client must not have been built before. */
TEST(Connection, isMadeOnceForManyThreadsAtOnce) {
    const RuntimeDir directory;
    ScriptedService service;
    service.start();
    service.reply(replyOf({0, 7}));
    FdCapture standardError(STDERR_FILENO);

    std::promise<void> start;
    const std::shared_future<void> started(start.get_future());
    std::vector<TVBaseClient*> clients(kThreads);
    std::vector<int> values(kThreads);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] {
            started.wait();
            clients[i] = TVBaseClient::self();
            values[i] = clients[i]->exeCmdGet(0x2003);
        });
    }
    start.set_value();
    for (std::thread& thread : threads) {
        thread.join();
    }

    EXPECT_EQ(std::set<TVBaseClient*>(clients.begin(), clients.end()).size(), 1U);
    EXPECT_EQ(values, std::vector<int>(kThreads, 7));
    EXPECT_EQ(service.takeRequests(), std::vector<Bytes>(kThreads, requestOf(0x2003)));
    const std::string text = standardError.take();
    EXPECT_EQ(text.find("Try get"), text.rfind("Try get"));
    EXPECT_NE(text.find("Try get"), std::string::npos);
}

} // namespace
} // namespace kelutv::test
