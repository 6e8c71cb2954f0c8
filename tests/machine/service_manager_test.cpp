#include "platform/droid/Calls.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "simulator/Simulator.h"
#include "support/Capture.h"
#include "support/ChildProcess.h"
#include "support/Deadline.h"
#include "support/TestFolder.h"

#include <binder/IServiceManager.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::test {
namespace {

using android::NO_ERROR;

constexpr char kNobody[] = "65534";

ChildProcess::Options capturing() {
    ChildProcess::Options options;
    options.captureOutput = true;
    options.captureError = true;
    return options;
}

std::unique_ptr<ChildProcess> startManager(std::vector<std::string> options = {}) {
    options.insert(options.begin(), KELUTV_SERVICE_MANAGER);
    return std::make_unique<ChildProcess>(std::move(options), capturing());
}

std::unique_ptr<ChildProcess> runningManager(std::vector<std::string> options = {}) {
    std::unique_ptr<ChildProcess> manager = startManager(std::move(options));
    EXPECT_TRUE(manager->output().waitFor("kqservicemanager: ready (/dev/binder)\n"));
    return manager;
}

TEST(ServiceManagerProcess, refusesServicesOfOtherUsers) {
    const std::unique_ptr<ChildProcess> manager = runningManager();
    ChildProcess peer({kPeerProgram, "serve-as", kNobody, "of.nobody"}, capturing());
    EXPECT_EQ(peer.exitCode(), 1);
    EXPECT_NE(peer.error().text().find("cannot serve of.nobody: status -1\n"), std::string::npos);
    EXPECT_TRUE(manager->error().waitFor("uid 65534 may not add the service of.nobody"));
    EXPECT_EQ(service("of.nobody"), nullptr);
}

TEST(ServiceManagerProcess, takesServicesOfUsersThatAreAllowed) {
    const std::unique_ptr<ChildProcess> manager = runningManager({"--allow-uid", kNobody});
    ChildProcess peer({kPeerProgram, "serve-as", kNobody, "of.nobody"}, capturing());
    ASSERT_TRUE(peer.output().waitFor(kPeerReady));
    const android::sp<android::IBinder> found = service("of.nobody");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(call(found, kEcho, replyOf({1})).bytes, replyOf({1}));
}

TEST(ServiceManagerProcess, isAloneOnItsDevice) {
    const std::unique_ptr<ChildProcess> manager = runningManager();
    const std::unique_ptr<ChildProcess> second = startManager();
    EXPECT_EQ(second->exitCode(), 1);
    EXPECT_EQ(second->error().text(), "kqservicemanager: /dev/binder: another service manager runs\n");
}

TEST(ServiceManagerProcess, namesADeviceThatIsNone) {
    const TestFolder folder;
    const std::string path = folder.pathOf("nowhere");
    const std::unique_ptr<ChildProcess> manager = startManager({"--device", path});
    EXPECT_EQ(manager->exitCode(), 1);
    EXPECT_EQ(manager->error().text(), "kqservicemanager: " + path + ": No such file or directory\n");
}

TEST(ServiceManagerProcess, mayBeAbsentAndComeBack) {
    {
        const std::unique_ptr<ChildProcess> manager = runningManager();
        EXPECT_EQ(service("peer"), nullptr);
    }
    LogCapture log;
    EXPECT_TRUE(eventually([&] {
        EXPECT_EQ(service("peer"), nullptr);
        const std::vector<LogEntry> entries = log.take();
        return !entries.empty() && entries[0].text == "looking for peer: the service manager gives status -32";
    }));
    const std::unique_ptr<ChildProcess> manager = runningManager();
    const Peer peer;
    EXPECT_EQ(call(peer.binder(), kEcho, replyOf({2})).bytes, replyOf({2}));
}

TEST(ServiceManagerProcess, knowsServicesAgainAfterARestart) {
    std::unique_ptr<ChildProcess> manager = runningManager();
    const Peer peer({"first", "second"});
    const Simulator simulator;
    for (int restart = 0; restart < 2; ++restart) {
        manager.reset();
        manager = runningManager();
        for (const char* const name : {"first", "second", "TVBaseService"}) {
            EXPECT_TRUE(eventually([name] { return service(name) != nullptr; })) << name;
        }
        EXPECT_EQ(android::defaultServiceManager()->listServices().size(), 3u);
        EXPECT_EQ(call(peer.binder("second"), kEcho, replyOf({restart})).bytes, replyOf({restart}));
    }
}

TEST(ServiceManagerProcess, isNotNeededByProxies) {
    std::unique_ptr<ChildProcess> manager = runningManager();
    const Peer peer;
    const android::sp<android::IBinder> found = peer.binder();
    manager.reset();
    EXPECT_EQ(call(found, kEcho, replyOf({3})).bytes, replyOf({3}));
    EXPECT_EQ(found->pingBinder(), NO_ERROR);
}

} // namespace
} // namespace kelutv::test
