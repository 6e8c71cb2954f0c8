#pragma once

#include "tools/kelutv/compliance/results/CheckResult.h"
#include "tools/kelutv/text/Hex.h"

#include <chrono>
#include <cstdint>
#include <vector>

namespace kelutv::tool::compliance {

/** The code under which the service takes requests. */
constexpr std::uint32_t kRequestCode = 1;

/** The service as checks ask it: requests go as the bytes that they are. */
class Television {
public:
    /**
     * Sends the bytes and waits for the reply, as long as it takes.
     *
     * @throws LinkError when there is no service
     */
    Exchange ask(const Bytes& request, std::uint32_t code = kRequestCode);

    /** Whether there is a service that takes transactions. */
    bool isAlive() const;

    /** Adds what answers to other processes took. */
    void add(const std::vector<std::chrono::nanoseconds>& latencies);

    /** What the slowest answer took since `takeLatencies`; 0 without one. */
    std::chrono::nanoseconds slowestAnswer() const;

    /** How long the answers took since this was asked last. */
    std::vector<std::chrono::nanoseconds> takeLatencies();

    /** Whether a request did not get through since this was asked last. */
    bool takeLoss();

    /** Whether the service ended in a request since this was asked last, even where there is one again. */
    bool takeDeath();

private:
    std::vector<std::chrono::nanoseconds> mLatencies;
    bool mHasLost = false;
    bool mHasDied = false;
};

} // namespace kelutv::tool::compliance
