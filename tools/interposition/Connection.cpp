#include "tools/interposition/Connection.h"

#include "tools/interposition/LogCollector.h"
#include "tools/interposition/Next.h"
#include "tools/interposition/Tap.h"
#include "tools/process/Deadline.h"

#include <binder/IServiceManager.h>
#include <kelutv/link/TVBaseClient.h>

#include <array>
#include <chrono>
#include <cstdint>

namespace kelutv::interposition {

namespace {

/** How long the name of a process may be found that is ending, and how often one looks meanwhile. */
constexpr std::chrono::milliseconds kEndOfAProcess{1000};
constexpr std::chrono::milliseconds kPauseOfLooks{20};

struct State {
    bool isStubbed = false;
    bool isClientMade = false;
    bool isConnected = false;
};

State& state() {
    static State state;
    return state;
}

/** Runs the library's own constructor, which connects. */
void construct(android::TVBaseClient& client) {
    using Constructor = void (*)(android::TVBaseClient*);
    static const auto constructor = next<Constructor>("_ZN7android12TVBaseClientC1Ev");
    constructor(&client);
}

android::TVBaseClient& madeClient() {
    state().isClientMade = true;
    return *android::TVBaseClient::self();
}

/** One look-up before the library's own, which tries five times. */
bool isServiceThere() {
    return android::defaultServiceManager()->getService(android::String16("TVBaseService")) != nullptr;
}

bool connectClient() {
    const bool wasMade = state().isClientMade;
    android::TVBaseClient& client = madeClient();
    if (wasMade) {
        // Without a connection; null members have nothing to lose.
        construct(client);
    }
    return client.getBpTvbaseService() != nullptr;
}

int answerWithZeros(const android::Parcel& /*request*/, android::Parcel* reply) {
    // Enough of them for every reply.
    static constexpr std::array<std::uint8_t, 4096> kZeros{};
    return reply->setData(kZeros.data(), kZeros.size());
}

} // namespace

Connection connectToService() {
    if (state().isConnected) {
        return {true, {}};
    }
    const LogCollector log;
    state().isConnected = isServiceThere() && connectClient();
    return {state().isConnected, LogCollector::messages()};
}

std::vector<std::string> reasonsOfLoss() {
    const process::Deadline end = process::deadlineIn(kEndOfAProcess);
    do {
        const LogCollector log;
        if (!isServiceThere()) {
            return LogCollector::messages();
        }
        process::waitToRead({}, process::deadlineIn(kPauseOfLooks));
    } while (std::chrono::steady_clock::now() < end);
    return {};
}

StubbedService::StubbedService() {
    state().isStubbed = true;
    madeClient();
    setResponder(answerWithZeros);
}

StubbedService::~StubbedService() {
    setResponder(nullptr);
    state().isStubbed = false;
}

} // namespace kelutv::interposition

namespace android {

/** Goes before the client library's own: while the service is stubbed the client is made without a connection. */
KELUTV_API TVBaseClient::TVBaseClient() {
    if (!kelutv::interposition::state().isStubbed) {
        kelutv::interposition::construct(*this);
    }
}

} // namespace android
