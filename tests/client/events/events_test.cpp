#include "client/ClientTest.h"
#include "client/EventRecorder.h"

#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_notify.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

using android::TVBaseClient;

const std::vector<Event> kNoEvents;

class Events : public ClientTest {
protected:
    ~Events() override { TVBaseClient::registCallback(nullptr); }

    void registerCallback(tv_NotifyFun_Callback callback) {
        FdCapture standardOutput(STDOUT_FILENO);
        linux_tv_registerCallbackFunc(callback);
        standardOutput.take();
    }

    EventRecorder events;
};

TEST_F(Events, ofTheSevenModulesArriveUnchangedAndInOrder) {
    registerCallback(EventRecorder::first);
    std::vector<Event> expected;
    for (const unsigned int module : {0x10000U, 0x30000U, 0x50000U, 0x60000U, 0x80000U, 0x1A0000U, 0x40000U}) {
        events.publish(module + 3, "payload");
        expected.push_back({"first", static_cast<int>(module + 3), "payload", nullptr});
    }
    EXPECT_EQ(events.received(), expected);
}

TEST_F(Events, keepTheirPayloadByteForByte) {
    registerCallback(EventRecorder::first);
    const std::string payload("a\0b\n\xFF", 5);
    events.publish(0x60001, payload);
    events.publish(0x60002, "");
    events.publish(0x60003, std::string(60000, 'x'));
    const std::vector<Event> expected{{"first", 0x60001, payload, nullptr},
                                      {"first", 0x60002, "", nullptr},
                                      {"first", 0x60003, std::string(60000, 'x'), nullptr}};
    EXPECT_EQ(events.received(), expected);
}

TEST_F(Events, ofOtherModulesNeverArrive) {
    registerCallback(EventRecorder::first);
    for (const unsigned int id :
         {0x20000U, 0x70001U, 0x90001U, 0xA0001U, 0xB0000U, 0xC0000U, 0x190000U, 0x1B0001U, 0x200000U, 0x200001U}) {
        events.publish(id, "other");
    }
    EXPECT_EQ(events.received(), kNoEvents);
}

TEST_F(Events, mayComeInWhileTheCallbackIsChanged) {
    constexpr int kChanges = 200;
    for (int change = 0; change < kChanges; ++change) {
        events.publish(0x60001, "payload");
        TVBaseClient::registCallback(
            change % 2 == 0 ? nullptr : reinterpret_cast<TVBaseClient::EventCallback>(EventRecorder::first));
    }
    TVBaseClient::registCallback(nullptr);
    const std::vector<Event> received = events.received();
    EXPECT_LE(received.size(), static_cast<size_t>(kChanges));
    for (const Event& event : received) {
        EXPECT_EQ(event, (Event{"first", 0x60001, "payload", nullptr}));
    }
}

TEST_F(Events, beforeARegistrationAreLost) {
    events.publish(0x60001, "early");
    EXPECT_EQ(events.received(), kNoEvents);
    registerCallback(EventRecorder::first);
    EXPECT_EQ(events.received(), kNoEvents);
    events.publish(0x60002, "late");
    EXPECT_EQ(events.received(), (std::vector<Event>{{"first", 0x60002, "late", nullptr}}));
}

TEST_F(Events, goToTheLastCallbackOnly) {
    registerCallback(EventRecorder::first);
    registerCallback(EventRecorder::second);
    events.publish(0x60001);
    EXPECT_EQ(events.received(), (std::vector<Event>{{"second", 0x60001, "", nullptr}}));
}

TEST_F(Events, areDroppedBetweenUnregistrationAndANewRegistration) {
    registerCallback(EventRecorder::first);
    linux_tv_unRegisterCallbackFunc(EventRecorder::first);
    events.publish(0x60001);
    EXPECT_EQ(events.received(), kNoEvents);
    registerCallback(EventRecorder::first);
    events.publish(0x60002);
    EXPECT_EQ(events.received(), (std::vector<Event>{{"first", 0x60002, "", nullptr}}));
}

TEST_F(Events, areDroppedAfterANullRegistration) {
    registerCallback(EventRecorder::first);
    registerCallback(nullptr);
    events.publish(0x60001);
    EXPECT_EQ(events.received(), kNoEvents);
}

// irregular: linux_tv_unRegisterCallbackFunc
TEST_F(Events, unregistrationTakesAwayAnyCallback) {
    registerCallback(EventRecorder::first);
    linux_tv_unRegisterCallbackFunc(EventRecorder::second);
    events.publish(0x60001);
    EXPECT_EQ(events.received(), kNoEvents);
}

TEST_F(Events, passThroughTheNotifierWithAllFourArguments) {
    static unsigned int gotId = 0;
    static void* gotMsg = nullptr;
    static unsigned int gotLength = 0;
    static void* gotPrev = nullptr;
    TVBaseClient::registCallback([](unsigned int id, void* msg, unsigned int length, void* prev) {
        gotId = id;
        gotMsg = msg;
        gotLength = length;
        gotPrev = prev;
    });
    int msg = 0;
    int prev = 0;
    TVBaseClient::eventNotify(0xFFFFFFFEU, &msg, 0x80000001U, &prev);
    EXPECT_EQ(gotId, 0xFFFFFFFEU);
    EXPECT_EQ(gotMsg, &msg);
    EXPECT_EQ(gotLength, 0x80000001U);
    EXPECT_EQ(gotPrev, &prev);
}

TEST_F(Events, areDroppedSilentlyByTheNotifierWithoutACallback) {
    TVBaseClient::registCallback(nullptr);
    TVBaseClient::eventNotify(0x60001, nullptr, 0, nullptr);
    EXPECT_EQ(events.received(), kNoEvents);
    EXPECT_EQ(logged(), kNothingLogged);
}

} // namespace
} // namespace kelutv::test
