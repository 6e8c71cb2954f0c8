#include "platform/droid/Calls.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "support/Capture.h"

#include <sys/stat.h>
#include <unistd.h>

namespace kelutv::test {
namespace {

constexpr char kNobody[] = "65534";

ChildProcess::Options capturing() {
    ChildProcess::Options options;
    options.captureOutput = true;
    return options;
}

/** The rules of the directory keep others out before it comes to this; here they are lifted for the other user's sake.
 */
class OtherUser : public DroidTest {
protected:
    void SetUp() override {
        if (::geteuid() != 0) {
            GTEST_SKIP() << "only root can start a process of another user";
        }
        service("none"); // makes the room
    }

    void setAccess(mode_t mode) const {
        ::chmod(directory().path().c_str(), mode);
        ::chmod((directory().path() + "/services").c_str(), mode);
    }
};

TEST_F(OtherUser, isRefusedAsACaller) {
    Peer peer;
    ::chmod(pathOf("peer").c_str(), 0777);
    setAccess(0755);
    ChildProcess caller({kPeerProgram, "connect-as", kNobody, pathOf("peer")}, capturing());
    EXPECT_EQ(caller.exitCode(), 0);
    EXPECT_EQ(caller.output().take(), "refused\n");
    setAccess(0700);
    EXPECT_EQ(call(peer.binder(), kEcho, replyOf({1})).bytes, replyOf({1}));
}

TEST_F(OtherUser, isRefusedAsAService) {
    setAccess(0777);
    ChildProcess impostor({kPeerProgram, "listen-as", kNobody, pathOf("peer")}, capturing());
    ASSERT_TRUE(impostor.output().waitFor(kPeerReady));
    setAccess(0700);
    LogCapture log;
    EXPECT_EQ(service("peer"), nullptr);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "calling " + pathOf("peer") + ": Permission denied");
}

} // namespace
} // namespace kelutv::test
