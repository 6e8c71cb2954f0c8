#include "simulator/HostileRequests.h"
#include "simulator/Simulator.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace kelutv::test {

namespace {

const auto& environmentOfRandomRequests = SimulatorEnvironment::install();

constexpr int kRequestsPerThread = 500;

void sendRandomRequests(unsigned int seed) {
    HostileRequests requests(seed);
    for (int i = 0; i < kRequestsPerThread; ++i) {
        const Bytes request = requests.next();
        ASSERT_GE(SimulatorEnvironment::transact(request).size(), sizeof(std::int32_t)) << hex(request);
    }
}

TEST(RandomRequests, AreAllAnswered) {
    std::vector<std::thread> threads;
    for (unsigned int seed = 1; seed <= 4; ++seed) {
        threads.emplace_back(sendRandomRequests, seed);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(SimulatorEnvironment::transact(requestOf(0x2029)), replyOf({0, 0}));
}

} // namespace

} // namespace kelutv::test
