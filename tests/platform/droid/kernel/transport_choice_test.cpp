#include "platform/droid/DroidTest.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "support/Deadline.h"

#include <unistd.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::test {
namespace {

/** How a process finds its way to others. */
class TransportChoice : public DroidTest {
protected:
    /** What a process that publishes a service says on standard error, and whether it succeeds. */
    struct Outcome {
        bool serves;
        std::string log;
    };

    static Outcome serveWith(std::vector<std::string> environment) {
        environment.emplace_back("KQLOG_LEVEL=v");
        ChildProcess::Options options;
        options.environment = std::move(environment);
        options.captureOutput = true;
        options.captureError = true;
        ChildProcess peer({kPeerProgram, "serve", "chosen"}, options);
        const bool decided = eventually([&] { return peer.output().text() == kPeerReady || peer.wait(kNow); });
        return {decided && peer.output().text() == kPeerReady, peer.error().text()};
    }

    /** Where no device is. */
    std::string nowhere() const { return directory().path() + "/nowhere"; }

    static constexpr std::chrono::milliseconds kNow{0};
};

TEST_F(TransportChoice, isTheSocketsWithAWarningWhereTheDeviceThatIsNamedIsNotThere) {
    const Outcome outcome = serveWith({"KQDROID_TRANSPORT=", "KQDROID_BINDER_DEVICE=" + nowhere()});
    EXPECT_TRUE(outcome.serves);
    EXPECT_NE(outcome.log.find("calls go through sockets (" + nowhere() + ": No such file or directory)"),
              std::string::npos)
        << outcome.log;
    EXPECT_NE(outcome.log.find("W kqdroid"), std::string::npos) << outcome.log;
}

TEST_F(TransportChoice, needsNoWarningWhereNoDeviceIsNamed) {
    const Outcome outcome = serveWith({"KQDROID_TRANSPORT=", "KQDROID_BINDER_DEVICE="});
    EXPECT_NE(outcome.log.find("V kqdroid"), std::string::npos) << outcome.log;
    const bool isThere = ::access("/dev/binder", F_OK) == 0;
    EXPECT_TRUE(isThere || outcome.log.find("W kqdroid") == std::string::npos) << outcome.log;
}

TEST_F(TransportChoice, isTheSocketsWithAWarningWhereTheDeviceIsNoDriver) {
    const Outcome outcome = serveWith({"KQDROID_TRANSPORT=", "KQDROID_BINDER_DEVICE=/dev/null"});
    EXPECT_TRUE(outcome.serves);
    EXPECT_NE(outcome.log.find("calls go through sockets (/dev/null: is no binder driver)"), std::string::npos)
        << outcome.log;
    EXPECT_NE(outcome.log.find("W kqdroid"), std::string::npos) << outcome.log;
}

TEST_F(TransportChoice, mayBeTheSocketsInAnyCase) {
    const Outcome outcome = serveWith({"KQDROID_TRANSPORT=sockets"});
    EXPECT_TRUE(outcome.serves);
    EXPECT_NE(outcome.log.find("calls go through sockets (as asked for)"), std::string::npos) << outcome.log;
}

TEST_F(TransportChoice, thatIsTheKernelAndCannotBeServesNothing) {
    const Outcome outcome = serveWith({"KQDROID_TRANSPORT=kernel", "KQDROID_BINDER_DEVICE=" + nowhere()});
    EXPECT_FALSE(outcome.serves);
    EXPECT_NE(outcome.log.find("calls are to go through the kernel's binder driver: " + nowhere() +
                               ": No such file or directory"),
              std::string::npos)
        << outcome.log;
    EXPECT_NE(outcome.log.find("cannot serve chosen: status -19"), std::string::npos) << outcome.log;
}

TEST_F(TransportChoice, comesWithAWarningForAnUnknownLevel) {
    for (const std::string level : {"31", "28 ", "3", "x"}) {
        const Outcome outcome = serveWith({"KQDROID_TRANSPORT=sockets", "KQDROID_BINDER_LEVEL=" + level});
        EXPECT_TRUE(outcome.serves);
        const std::string warning = "KQDROID_BINDER_LEVEL is \"" + level + "\", not 28, 29 or 30; taking 28\n";
        const size_t at = outcome.log.find(warning);
        ASSERT_NE(at, std::string::npos) << outcome.log;
        EXPECT_EQ(outcome.log.find("KQDROID_BINDER_LEVEL", at + warning.size()), std::string::npos) << outcome.log;
        EXPECT_NE(outcome.log.find("W kqdroid"), std::string::npos) << outcome.log;
    }
}

TEST_F(TransportChoice, comesWithoutAWarningForAKnownLevel) {
    for (const std::string level : {"", "28", "29", "30"}) {
        const Outcome outcome = serveWith({"KQDROID_TRANSPORT=sockets", "KQDROID_BINDER_LEVEL=" + level});
        EXPECT_EQ(outcome.log.find("KQDROID_BINDER_LEVEL"), std::string::npos) << outcome.log;
    }
}

TEST_F(TransportChoice, thatIsUnknownIsNamed) {
    const Outcome outcome = serveWith({"KQDROID_TRANSPORT=pigeons", "KQDROID_BINDER_DEVICE=" + nowhere()});
    EXPECT_TRUE(outcome.serves);
    EXPECT_NE(outcome.log.find("KQDROID_TRANSPORT is \"pigeons\", not kernel or sockets; taking what there is"),
              std::string::npos)
        << outcome.log;
}

} // namespace
} // namespace kelutv::test
