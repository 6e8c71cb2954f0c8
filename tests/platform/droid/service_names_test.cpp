#include "Calls.h"
#include "DroidTest.h"
#include "peer/Peer.h"
#include "peer/PeerProtocol.h"
#include "peer/PeerService.h"
#include "support/Capture.h"

#include <binder/IServiceManager.h>

#include <set>

namespace kelutv::test {
namespace {

using android::BAD_VALUE;
using android::IBinder;
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

class ServiceNames : public DroidTest {
protected:
    /** What the log calls a service. */
    std::string placeOf(const std::string& name) const { return throughKernel() ? name : pathOf(name); }
};

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

TEST_F(ServiceNames, nameOfAnotherLivingProcessIsTaken) {
    LogCapture log;
    const Peer peer;
    EXPECT_EQ(publish(String16("peer"), new PeerService), android::ALREADY_EXISTS);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "serving " + placeOf("peer") + ": another process serves it");
    EXPECT_NE(service("peer")->remoteBinder(), nullptr);
}

TEST_F(ServiceNames, nameOfAProcessThatAnswersNobodyIsTaken) {
    const LogCapture log;
    ChildProcess::Options options;
    options.captureOutput = true;
    ChildProcess mute({kPeerProgram, "add", "mute"}, options);
    ASSERT_TRUE(mute.output().waitFor(kPeerReady));
    EXPECT_EQ(publish(String16("mute"), new PeerService), android::ALREADY_EXISTS);
}

TEST_F(ServiceNames, nameOfAKilledProcessIsTakenOver) {
    Peer first;
    first.kill();
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
}

} // namespace
} // namespace kelutv::test
