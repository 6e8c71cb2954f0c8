#include "Calls.h"
#include "DroidTest.h"
#include "peer/Peer.h"
#include "peer/PeerProtocol.h"
#include "peer/PeerService.h"
#include "support/Capture.h"

#include <binder/IServiceManager.h>

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <set>

namespace kelutv::test {
namespace {

using android::BAD_VALUE;
using android::IBinder;
using android::NO_ERROR;
using android::sp;
using android::String16;

android::status_t publish(const String16& name, const sp<IBinder>& object) {
    return android::defaultServiceManager()->addService(name, object);
}

std::set<std::u16string> listed() {
    std::set<std::u16string> names;
    for (const String16& name : android::defaultServiceManager()->listServices()) {
        names.emplace(name.string(), name.size());
    }
    return names;
}

using ServiceNames = DroidTest;

TEST_F(ServiceNames, emptyAndTooLongNamesAreBad) {
    const sp<IBinder> object = new PeerService;
    EXPECT_EQ(publish(String16(), object), BAD_VALUE);
    EXPECT_EQ(publish(String16(std::string(128, 'a').c_str()), object), BAD_VALUE);
    EXPECT_EQ(service(""), nullptr);
    EXPECT_EQ(service(std::string(128, 'a')), nullptr);
    EXPECT_EQ(listed().size(), 0u);
}

TEST_F(ServiceNames, onlyObjectsOfThisProcessCanBePublished) {
    EXPECT_EQ(publish(String16("names.null"), nullptr), BAD_VALUE);
    const Peer peer;
    EXPECT_EQ(publish(String16("names.remote"), peer.binder()), BAD_VALUE);
}

TEST_F(ServiceNames, nameWhosePathIsTooLongIsRefusedInTheLog) {
    LogCapture log;
    const std::string longest(127, 'a');
    EXPECT_EQ(publish(String16(longest.c_str()), new PeerService), -ENAMETOOLONG);
    EXPECT_EQ(service(longest), nullptr);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].text, "serving " + pathOf(longest) + ": File name too long");
    EXPECT_EQ(entries[1].text, "calling " + pathOf(longest) + ": File name too long");
}

TEST_F(ServiceNames, anyCharacterMayStandInAName) {
    const std::vector<std::string> names{"plain",
                                         "a/b",
                                         "/",
                                         "..",
                                         ".",
                                         ".lock",
                                         "100%",
                                         "%41",
                                         "two words",
                                         "\xC3\xBC\xE2\x82\xAC",
                                         "line\n",
                                         "Case.And-Some_",
                                         "\xF0\x9F\x93\xBA"};
    const Peer peer(names);
    for (const std::string& name : names) {
        const sp<IBinder> binder = service(name);
        ASSERT_NE(binder, nullptr) << name;
        EXPECT_EQ(call(binder, kEcho, replyOf({1})).bytes, replyOf({1}));
    }
    EXPECT_EQ(service("A"), nullptr) << "an escape in a name was taken for what it means";
    EXPECT_EQ(service("PLAIN"), nullptr);
    std::set<std::u16string> expected;
    for (const std::string& name : names) {
        const String16 wide(name.c_str());
        expected.emplace(wide.string(), wide.size());
    }
    EXPECT_TRUE(listed() == expected);
}

TEST_F(ServiceNames, nothingIsPutOutsideTheRoom) {
    const Peer peer({"../outside", "/etc/x"});
    EXPECT_FALSE(std::filesystem::exists(directory().path() + "/outside"));
    EXPECT_EQ(listed().size(), 2u);
}

TEST_F(ServiceNames, nameOfAnotherLivingProcessIsTaken) {
    LogCapture log;
    const Peer peer;
    EXPECT_EQ(publish(String16("peer"), new PeerService), android::ALREADY_EXISTS);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "serving " + pathOf("peer") + ": another process serves it");
    EXPECT_NE(service("peer")->remoteBinder(), nullptr);
}

TEST_F(ServiceNames, nameOfAKilledProcessIsTakenOver) {
    Peer first;
    first.kill();
    EXPECT_TRUE(std::filesystem::exists(pathOf("peer")));
    const Peer second;
    EXPECT_EQ(call(second.binder(), kEcho, replyOf({2})).bytes, replyOf({2}));
}

TEST_F(ServiceNames, killedProcessIsNeitherFoundNorListed) {
    const Peer living({"living"});
    Peer dead({"dead"});
    EXPECT_EQ(listed().size(), 2u);
    dead.kill();
    EXPECT_EQ(service("dead"), nullptr);
    EXPECT_TRUE(listed() == std::set<std::u16string>{u"living"});
    EXPECT_FALSE(std::filesystem::exists(pathOf("dead")));
}

TEST_F(ServiceNames, fileThatIsNoSocketIsNoService) {
    EXPECT_EQ(service("none"), nullptr);
    std::filesystem::create_directory(pathOf("folder"));
    const LogCapture log;
    EXPECT_EQ(listed().size(), 0u);
    EXPECT_LT(publish(String16("folder"), new PeerService), NO_ERROR);
}

} // namespace
} // namespace kelutv::test
