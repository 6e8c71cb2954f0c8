#include "simulator/Simulator.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <thread>
#include <vector>

namespace kelutv::test {

namespace {

const auto& environment = SimulatorEnvironment::install();

constexpr int kRequestsPerThread = 500;
constexpr std::array<int, 30> kCommands{0x800E, 0x800F, 0x8010, 0x8011, 0x8013, 0x8015, 0x8016, 0x5018, 0x501C, 0xD005,
                                        0x2008, 0x2009, 0x200A, 0x2020, 0x203A, 0x2053, 0x2054, 0x2056, 0x2057, 0x2059,
                                        0x205A, 0xE001, 0x1002, 0x1003, 0x3002, 0x300E, 0x7000, 0x7001, 0x700A, 0x7018};

/** Requests of every degree of wrongness; the seed makes them the same in every run. */
class RequestMaker {
public:
    explicit RequestMaker(unsigned int seed) : mRandom(seed) {}

    Bytes next() {
        switch (below(4)) {
        case 0:
            return noise(static_cast<std::size_t>(below(200)));
        case 1:
            return withTail(Wire::request(below(0x20000)), 64);
        case 2:
            return damaged(withTail(Wire::request(command()), 16));
        default:
            return withTail(Wire::request(command()), 200);
        }
    }

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(mRandom); }

    int command() { return kCommands[static_cast<std::size_t>(below(static_cast<int>(kCommands.size())))]; }

    Bytes noise(std::size_t length) {
        Bytes bytes(length);
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(below(256));
        }
        return bytes;
    }

    Bytes withTail(Wire request, int longest) {
        const Bytes tail = noise(static_cast<std::size_t>(below(longest)));
        return request.raw(tail.data(), tail.size()).bytes();
    }

    Bytes damaged(Bytes bytes) {
        bytes[static_cast<std::size_t>(below(static_cast<int>(bytes.size())))] ^=
            static_cast<std::uint8_t>(1 + below(255));
        bytes.resize(bytes.size() - static_cast<std::size_t>(below(8)));
        return bytes;
    }

    std::mt19937 mRandom;
};

void sendRandomRequests(unsigned int seed) {
    RequestMaker maker(seed);
    for (int i = 0; i < kRequestsPerThread; ++i) {
        const Bytes request = maker.next();
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
