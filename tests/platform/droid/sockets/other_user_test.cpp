#include "platform/droid/Calls.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "support/Capture.h"

#include <sys/stat.h>
#include <unistd.h>

#include <vector>

namespace kelutv::test {
namespace {

/** As whom a process can be started. Only root can start one of another user, so that others have no such test. */
std::vector<const char*> otherUsers() {
    return ::geteuid() == 0 ? std::vector<const char*>{"65534"} : std::vector<const char*>{};
}

ChildProcess::Options capturing() {
    ChildProcess::Options options;
    options.captureOutput = true;
    return options;
}

/** The rules of the directory keep others out before it comes to this; here they are lifted for the other user's sake.
 */
class OtherUser : public DroidTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        service("none"); // makes the room
    }

    void setAccess(mode_t mode) const {
        ::chmod(directory().path().c_str(), mode);
        ::chmod((directory().path() + "/services").c_str(), mode);
    }
};

TEST_P(OtherUser, isRefusedAsACaller) {
    Peer peer;
    ::chmod(pathOf("peer").c_str(), 0777);
    setAccess(0755);
    ChildProcess caller({kPeerProgram, "connect-as", GetParam(), pathOf("peer")}, capturing());
    EXPECT_EQ(caller.exitCode(), 0);
    EXPECT_EQ(caller.output().take(), "refused\n");
    setAccess(0700);
    EXPECT_EQ(call(peer.binder(), kEcho, replyOf({1})).bytes, replyOf({1}));
}

TEST_P(OtherUser, isRefusedAsAService) {
    setAccess(0777);
    ChildProcess impostor({kPeerProgram, "listen-as", GetParam(), pathOf("peer")}, capturing());
    ASSERT_TRUE(impostor.output().waitFor(kPeerReady));
    setAccess(0700);
    LogCapture log;
    EXPECT_EQ(service("peer"), nullptr);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "calling " + pathOf("peer") + ": Permission denied");
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(OtherUser);
INSTANTIATE_TEST_SUITE_P(Nobody, OtherUser, ::testing::ValuesIn(otherUsers()));

} // namespace
} // namespace kelutv::test
