#include "platform/droid/Calls.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

size_t countOf(const std::string& part, const std::string& text) {
    size_t count = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

/** How processes meet where the kernel has the driver; this one goes through it. */
class TransportHere : public ::testing::Test {
protected:
    /** Runs while the test does. */
    std::string logOfPeer(const std::string& setting) {
        ChildProcess::Options options;
        options.environment = {setting, "KQLOG_LEVEL=v"};
        options.captureOutput = true;
        options.captureError = true;
        mPeer.emplace(std::vector<std::string>{kPeerProgram, "serve", "first", "second"}, options);
        EXPECT_TRUE(mPeer->output().waitFor(kPeerReady));
        return mPeer->error().text();
    }

private:
    const RuntimeDir mDirectory;
    std::optional<ChildProcess> mPeer;
};

TEST_F(TransportHere, isTheKernelsUnlessAskedOtherwise) {
    const std::string log = logOfPeer("KQDROID_TRANSPORT=");
    EXPECT_EQ(countOf("calls go through", log), 1U) << log;
    EXPECT_EQ(countOf("calls go through /dev/binder\n", log), 1U) << log;
    EXPECT_NE(service("second"), nullptr);
}

TEST_F(TransportHere, mayBeForcedToTheKernel) {
    const std::string log = logOfPeer("KQDROID_TRANSPORT=kernel");
    EXPECT_EQ(countOf("calls go through", log), 1U) << log;
    EXPECT_EQ(countOf("calls go through /dev/binder\n", log), 1U) << log;
    EXPECT_NE(service("second"), nullptr);
}

TEST_F(TransportHere, mayBeForcedToTheSockets) {
    const std::string log = logOfPeer("KQDROID_TRANSPORT=sockets");
    EXPECT_EQ(countOf("calls go through", log), 1U) << log;
    EXPECT_EQ(countOf("calls go through sockets (as asked for)\n", log), 1U) << log;
    EXPECT_EQ(service("second"), nullptr);
}

} // namespace
} // namespace kelutv::test
