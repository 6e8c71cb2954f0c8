#include "platform/droid/Calls.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerService.h"
#include "support/Capture.h"

#include <binder/IServiceManager.h>

#include <cerrno>
#include <filesystem>

namespace kelutv::test {
namespace {

using android::NO_ERROR;
using android::String16;

android::status_t publish(const std::string& name) {
    return android::defaultServiceManager()->addService(String16(name.c_str()), new PeerService);
}

size_t listed() { return android::defaultServiceManager()->listServices().size(); }

/** How services' names stand in the runtime directory. */
using SocketNames = DroidTest;

TEST_F(SocketNames, nameWhosePathIsTooLongIsRefusedInTheLog) {
    LogCapture log;
    const std::string longest(127, 'a');
    EXPECT_EQ(publish(longest), -ENAMETOOLONG);
    EXPECT_EQ(service(longest), nullptr);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].text, "serving " + pathOf(longest) + ": File name too long");
    EXPECT_EQ(entries[1].text, "calling " + pathOf(longest) + ": File name too long");
}

TEST_F(SocketNames, nothingIsPutOutsideTheRoom) {
    const Peer peer({"../outside", "/etc/x"});
    EXPECT_FALSE(std::filesystem::exists(directory().path() + "/outside"));
    EXPECT_EQ(listed(), 2u);
}

TEST_F(SocketNames, fileThatIsNoSocketIsNoService) {
    EXPECT_EQ(service("none"), nullptr);
    std::filesystem::create_directory(pathOf("folder"));
    const LogCapture log;
    EXPECT_EQ(listed(), 0u);
    EXPECT_LT(publish("folder"), NO_ERROR);
}

TEST_F(SocketNames, entryOfAKilledProcessGoesWhenItIsLookedFor) {
    Peer peer;
    peer.kill();
    EXPECT_TRUE(std::filesystem::exists(pathOf("peer")));
    EXPECT_EQ(service("peer"), nullptr);
    EXPECT_FALSE(std::filesystem::exists(pathOf("peer")));
}

} // namespace
} // namespace kelutv::test
