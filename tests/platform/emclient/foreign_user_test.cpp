#include "EventRecorder.h"
#include "support/Capture.h"
#include "support/ChildProcess.h"

#include <keluem/publisher.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <string>

#include <gtest/gtest.h>

namespace {

using kelutv::test::ChildProcess;
using kelutv::test::EventRecorder;
using kelutv::test::LogCapture;

constexpr unsigned int kForeignUsersModule = 0x100000;
constexpr const char* kSameUser = "0"; // as the peer program understands it
constexpr const char* kNobody = "65534";

ChildProcess::Options capturing() {
    ChildProcess::Options options;
    options.captureOutput = true;
    return options;
}

bool canBecomeNobody() {
    if (::geteuid() == 0) {
        return true;
    }
    std::cout << "not run by root, so no program can be run as another user; only this user's own are tried\n";
    return false;
}

/** The runtime directory open to all for as long as the object lives: only the users' identity keeps them apart. */
class OpenedDirectory {
public:
    OpenedDirectory() { setModes(0777); }
    ~OpenedDirectory() { setModes(0700); }
    OpenedDirectory(const OpenedDirectory&) = delete;
    OpenedDirectory& operator=(const OpenedDirectory&) = delete;

private:
    static void setModes(mode_t mode) {
        ::chmod(kelutv::test::runtimeDir().path().c_str(), mode);
        ::chmod(kelutv::test::eventRoom().c_str(), mode);
        for (const std::string& entry : kelutv::test::eventEntries()) {
            ::chmod((kelutv::test::eventRoom() + '/' + entry).c_str(), mode);
        }
    }
};

bool logged(LogCapture& log, const std::string& text) {
    const auto entries = log.take();
    return std::any_of(entries.begin(), entries.end(), [&](const auto& entry) { return entry.text == text; });
}

TEST(ForeignPublisher, ofThisUserIsHeard) {
    EventRecorder recorder(kForeignUsersModule);
    ChildProcess peer(
        {KELUTV_EVENT_PEER, "publish", kSameUser, kelutv::test::ownEntry(), std::to_string(kForeignUsersModule)},
        capturing());
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kForeignUsersModule});
}

TEST(ForeignPublisher, ofAnotherUserIsShutOut) {
    if (!canBecomeNobody()) {
        return;
    }
    EventRecorder recorder(kForeignUsersModule);
    LogCapture log;
    {
        const OpenedDirectory opened;
        ChildProcess peer(
            {KELUTV_EVENT_PEER, "publish", kNobody, kelutv::test::ownEntry(), std::to_string(kForeignUsersModule)},
            capturing());
        EXPECT_EQ(peer.exitCode(), 0);
        EXPECT_EQ(peer.output().text(), "sent\nclosed\n");
    }
    EXPECT_TRUE(logged(log, "publisher of uid 65534 refused"));
    keluem::Publisher publisher;
    publisher.publish(kForeignUsersModule + 1, nullptr, 0);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kForeignUsersModule + 1});
}

TEST(ForeignSubscriber, ofThisUserIsServed) {
    EventRecorder recorder(kForeignUsersModule);
    const std::string path = kelutv::test::eventRoom() + "/1-peer";
    ChildProcess peer({KELUTV_EVENT_PEER, "subscribe", kSameUser, path}, capturing());
    ASSERT_TRUE(peer.output().waitFor("ready\n"));
    keluem::Publisher publisher;
    publisher.publish(kForeignUsersModule, nullptr, 0);
    EXPECT_EQ(peer.exitCode(), 0);
    EXPECT_EQ(peer.output().text(), "ready\nevent\n");
    ::unlink(path.c_str());
}

TEST(ForeignSubscriber, ofAnotherUserIsSentNothing) {
    if (!canBecomeNobody()) {
        return;
    }
    EventRecorder recorder(kForeignUsersModule);
    LogCapture log;
    keluem::Publisher publisher;
    publisher.publish(kForeignUsersModule, nullptr, 0);
    const std::string path = kelutv::test::eventRoom() + "/1-peer";
    {
        const OpenedDirectory opened;
        ChildProcess peer({KELUTV_EVENT_PEER, "subscribe", kNobody, path}, capturing());
        ASSERT_TRUE(peer.output().waitFor("ready\n"));
        EXPECT_EQ(publisher.publish(kForeignUsersModule + 1, nullptr, 0), 0);
        EXPECT_EQ(peer.exitCode(), 0);
        EXPECT_EQ(peer.output().text(), "ready\nclosed\n");
    }
    EXPECT_TRUE(logged(log, "subscriber of uid 65534 refused"));
    EXPECT_EQ(recorder.takeIds(2), (std::vector<unsigned int>{kForeignUsersModule, kForeignUsersModule + 1}));
    ::unlink(path.c_str());
}

} // namespace
