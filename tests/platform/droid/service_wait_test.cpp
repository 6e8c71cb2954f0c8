#include "DroidTest.h"
#include "peer/Peer.h"
#include "peer/PeerProtocol.h"
#include "support/Capture.h"

#include <binder/IServiceManager.h>

#include <chrono>
#include <cstdlib>
#include <future>

namespace kelutv::test {
namespace {

using android::IBinder;
using android::sp;
using android::String16;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

class ServiceWait : public DroidTest {
protected:
    static sp<IBinder> get() { return android::defaultServiceManager()->getService(String16("peer")); }

    static void configure(const char* wait) { ::setenv("KQDROID_SERVICE_WAIT_MS", wait, 1); }

    static milliseconds timeToMiss() {
        const auto start = Clock::now();
        EXPECT_EQ(get(), nullptr);
        return std::chrono::duration_cast<milliseconds>(Clock::now() - start);
    }
};

TEST_F(ServiceWait, zeroDoesNotWait) {
    configure("0");
    EXPECT_LT(timeToMiss(), milliseconds(1000));
}

TEST_F(ServiceWait, endsWhenTheTimeIsOver) {
    configure("60");
    EXPECT_GE(timeToMiss(), milliseconds(60));
}

TEST_F(ServiceWait, checkNeverWaits) {
    configure("60000");
    const auto start = Clock::now();
    EXPECT_EQ(android::defaultServiceManager()->checkService(String16("peer")), nullptr);
    EXPECT_LT(Clock::now() - start, kPatience);
}

TEST_F(ServiceWait, endsAsSoonAsTheServiceComes) {
    configure("60000");
    for (int round = 0; round < 10; ++round) {
        auto found = std::async(std::launch::async, get);
        Peer peer;
        ASSERT_EQ(found.wait_for(kPatience), std::future_status::ready) << "round " << round;
        EXPECT_NE(found.get(), nullptr);
        peer.kill();
    }
}

TEST_F(ServiceWait, findsWhatIsThereWithoutWaiting) {
    const Peer peer;
    configure("0");
    EXPECT_NE(get(), nullptr);
}

TEST_F(ServiceWait, otherNamesThatComeDoNotEndIt) {
    configure("60000");
    auto found = std::async(std::launch::async, get);
    const Peer other({"other"});
    const Peer peer;
    ASSERT_EQ(found.wait_for(kPatience), std::future_status::ready);
    EXPECT_NE(found.get(), nullptr);
}

TEST_F(ServiceWait, inVainIsNamedInTheLogWithThePlace) {
    configure("0");
    LogCapture log;
    EXPECT_EQ(get(), nullptr);
    EXPECT_EQ(android::defaultServiceManager()->checkService(String16("peer")), nullptr);
    const std::string place = throughKernel() ? "at the service manager behind the kernel's binder driver"
                                              : "in " + directory().path() + "/services";
    EXPECT_EQ(log.take(), (std::vector<LogEntry>{{5, "kqdroid", "no service peer " + place}}));
}

TEST_F(ServiceWait, badValueIsNamedAndTheDefaultTaken) {
    for (const std::string value : {"", "soon", "-1", "5s", "60001", "99999999999999999999"}) {
        configure(value.c_str());
        LogCapture log;
        EXPECT_GE(timeToMiss(), milliseconds(1000));
        const std::vector<LogEntry> entries = log.take();
        ASSERT_EQ(entries.size(), 2u);
        EXPECT_EQ(entries[0].text,
                  "KQDROID_SERVICE_WAIT_MS is \"" + value + "\", not a number from 0 to 60000; waiting 1000 ms");
    }
}

TEST_F(ServiceWait, isOneSecondByDefault) {
    ::unsetenv("KQDROID_SERVICE_WAIT_MS");
    const LogCapture log;
    EXPECT_GE(timeToMiss(), milliseconds(1000));
}

} // namespace
} // namespace kelutv::test
