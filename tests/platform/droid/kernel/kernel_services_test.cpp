#include "KernelServices.h"

#include "droid/LocalObjects.h"
#include "platform/droid/peer/PeerService.h"
#include "support/Capture.h"
#include "support/Deadline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using android::IBinder;
using android::NO_ERROR;
using android::sp;
using android::String16;

constexpr uint32_t kAdd = 3;

TEST_F(KernelServices, handleInTheAnswerIsTheService) {
    answer(object(BINDER_TYPE_HANDLE, 5), {0});
    const sp<IBinder> found = transport.find(String16("some"));
    ASSERT_NE(found, nullptr);
    EXPECT_NE(found->remoteBinder(), nullptr);
    const std::vector<Command> sent = driver.takeSent();
    ASSERT_EQ(sent.size(), 4u);
    const auto asked = sent[0].as<binder_transaction_data>();
    EXPECT_EQ(asked.target.handle, 0u);
    EXPECT_EQ(asked.code, 2u);
    EXPECT_EQ(sent[0].content, Wire::token(28, u"android.os.IServiceManager").str16(u"some").bytes());
    EXPECT_EQ(sent[1].code, static_cast<uint32_t>(BC_INCREFS));
    EXPECT_EQ(sent[2].code, static_cast<uint32_t>(BC_ACQUIRE));
    EXPECT_EQ(sent[2].as<uint32_t>(), 5u);
    EXPECT_EQ(sent[3].code, static_cast<uint32_t>(BC_FREE_BUFFER)) << "freed before the handle was taken";
}

TEST_F(KernelServices, objectOfThisProcessComesBackAsItself) {
    const sp<android::BBinder> own = new PeerService;
    const uint64_t number = android::LocalObjects::instance().hold(own);
    answer(object(BINDER_TYPE_BINDER, number), {0});
    EXPECT_EQ(transport.find(String16("own")), sp<IBinder>(own));
    android::LocalObjects::instance().release(number);
}

TEST_F(KernelServices, anythingElseInTheAnswerIsNoService) {
    answer({});
    answer(replyOf({0}));
    answer(object(BINDER_TYPE_BINDER, 0));
    answer(object(BINDER_TYPE_HANDLE, 5));               // not among the objects
    answer(object(BINDER_TYPE_HANDLE, 5), {4});          // elsewhere
    answer(object(BINDER_TYPE_HANDLE, 5), {UINT64_MAX}); // nowhere
    answer(object(BINDER_TYPE_FD, 5), {0});              // another kind
    answer(object(BINDER_TYPE_WEAK_HANDLE, 5), {0});     // another kind
    answer(object(BINDER_TYPE_BINDER, 0xDEAD), {0});     // not known here
    Bytes cutShort = object(BINDER_TYPE_HANDLE, 5);
    cutShort.resize(20);
    answer(cutShort, {0});
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(transport.find(String16("some")), nullptr) << i;
    }
    for (const uint32_t code : driver.takeSentCodes()) {
        EXPECT_NE(code, static_cast<uint32_t>(BC_ACQUIRE));
    }
}

TEST_F(KernelServices, missingManagerIsNamedInTheLog) {
    LogCapture log;
    driver.say({command(BR_DEAD_REPLY)});
    EXPECT_EQ(transport.find(String16("some")), nullptr);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "looking for some: the service manager gives status -32");
}

TEST_F(KernelServices, publishedObjectGoesOutAsAnObject) {
    const sp<android::BBinder> own = new PeerService;
    answer(object(BINDER_TYPE_BINDER, 0)); // nobody serves the name
    answer(replyOf({0}));
    EXPECT_EQ(transport.publish(String16("some"), own, {false, 8}), NO_ERROR);
    binder_transaction_data added{};
    for (const Command& sent : driver.takeSent()) {
        added = sent.code == BC_TRANSACTION ? sent.as<binder_transaction_data>() : added;
    }
    EXPECT_EQ(added.code, kAdd);
    EXPECT_EQ(added.offsets_size, sizeof(binder_size_t));
    // The strict-mode word, "android.os.IServiceManager", "some", the object, two words.
    EXPECT_EQ(added.data_size, 4u + (4 + 56) + (4 + 12) + 24 + 8);
}

TEST_F(KernelServices, nameOfALivingProcessIsTaken) {
    LogCapture log;
    answer(object(BINDER_TYPE_HANDLE, 5), {0});
    answer({}); // the ping
    EXPECT_EQ(transport.publish(String16("some"), new PeerService, {false, 8}), android::ALREADY_EXISTS);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "serving some: another process serves it");
}

TEST_F(KernelServices, nameOfAProcessThatDoesNotAnswerIsTaken) {
    LogCapture log;
    answer(object(BINDER_TYPE_HANDLE, 5), {0});
    driver.keepSilent();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(transport.publish(String16("some"), new PeerService, {false, 8}), android::ALREADY_EXISTS);
    EXPECT_LT(std::chrono::steady_clock::now() - start, kPatience / 2);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "serving some: another process serves it");
    // The thread that still asks must not fail, and log that, during another test.
    answer({});
    EXPECT_TRUE(driver.waitUntilHeard());
}

TEST_F(KernelServices, managersRefusalIsTheResult) {
    LogCapture log;
    answer({});
    answerStatus(-1);
    EXPECT_EQ(transport.publish(String16("some"), new PeerService, {false, 8}), -1);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "serving some: the service manager gives status -1");
}

/** The contents of the requests to add a service. */
std::vector<Bytes> addedIn(const std::vector<Command>& sent) {
    std::vector<Bytes> added;
    for (const Command& one : sent) {
        if (one.code == BC_TRANSACTION && one.as<binder_transaction_data>().code == kAdd) {
            added.push_back(one.content);
        }
    }
    return added;
}

TEST_F(KernelServices, areAddedToTheNextManagerWhenOneEnds) {
    LogCapture log;
    answer(replyOf({0})); // nobody serves the name
    answer(replyOf({0}));
    ASSERT_EQ(transport.publish(String16("some"), new PeerService, {false, 8}), NO_ERROR);
    const std::vector<Bytes> added = addedIn(driver.takeSent());
    ASSERT_EQ(added.size(), 1u);
    answer({}); // the manager is there
    ASSERT_TRUE(transport.serve());
    binder_uintptr_t cookie = 0;
    std::vector<Command> since = driver.takeSent();
    for (const Command& sent : since) {
        const auto asked = sent.as<binder_handle_cookie>();
        EXPECT_TRUE(sent.code != BC_REQUEST_DEATH_NOTIFICATION || asked.handle == 0u);
        cookie = sent.code == BC_REQUEST_DEATH_NOTIFICATION ? asked.cookie : cookie;
    }
    ASSERT_NE(cookie, 0u);

    driver.say({command(BR_DEAD_REPLY)}); // the next one is not there yet
    answer({});
    answer(replyOf({0}));
    answer(replyOf({0}));
    since.clear();
    driver.sayToServers({command(BR_DEAD_BINDER, cookie)});
    EXPECT_TRUE(eventually([&] {
        for (const Command& sent : driver.takeSent()) {
            since.push_back(sent);
        }
        return !addedIn(since).empty();
    }));
    const std::vector<Bytes> again = addedIn(since);
    ASSERT_EQ(again.size(), 1u);
    // The object may have got another number.
    const size_t head = Wire::token(28, u"android.os.IServiceManager").str16(u"some").bytes().size();
    EXPECT_EQ(again[0].size(), added[0].size());
    EXPECT_TRUE(std::equal(again[0].begin(), again[0].begin() + static_cast<long>(head), added[0].begin()));
    // The driver gives handle 0 to the next manager only once the one before is let go.
    std::vector<uint32_t> ofHandles;
    for (const Command& sent : since) {
        if (sent.code == BC_RELEASE || sent.code == BC_ACQUIRE || sent.code == BC_REQUEST_DEATH_NOTIFICATION) {
            ofHandles.push_back(sent.code);
            EXPECT_EQ(sent.as<uint32_t>(), 0u);
        }
    }
    EXPECT_EQ(ofHandles, (std::vector<uint32_t>{BC_RELEASE, BC_ACQUIRE, BC_REQUEST_DEATH_NOTIFICATION}));
    std::string told;
    EXPECT_TRUE(eventually([&] {
        for (const LogEntry& entry : log.take()) {
            told += entry.text + "\n";
        }
        return told == "added some to the new service manager\n";
    })) << told;
}

TEST_F(KernelServices, areNotAddedAgainToAManagerThatRefusesThem) {
    LogCapture log;
    answer(replyOf({0}));
    answer(replyOf({0}));
    ASSERT_EQ(transport.publish(String16("some"), new PeerService, {false, 8}), NO_ERROR);
    driver.say({command(BR_DEAD_REPLY)}); // the manager ends before this process serves
    answer({});
    answer(replyOf({0}));
    answerStatus(-1);
    ASSERT_TRUE(transport.serve());
    std::string told;
    EXPECT_TRUE(eventually([&] {
        for (const LogEntry& entry : log.take()) {
            told += entry.text + "\n";
        }
        return told == "serving some: the service manager gives status -1\n";
    })) << told;
    answer(object(BINDER_TYPE_HANDLE, 5), {0});
    EXPECT_NE(transport.find(String16("other")), nullptr) << "nobody else has taken the answer";
}

TEST_F(KernelServices, managerIsNotWatchedByAProcessThatAddsNothing) {
    ASSERT_TRUE(transport.serve());
    for (const Command& sent : driver.takeSent()) {
        EXPECT_EQ(sent.code, static_cast<uint32_t>(BC_ENTER_LOOPER));
    }
}

TEST_F(KernelServices, listEndsWithAFailure) {
    answer(Wire::reply().str16(u"one").bytes());
    answer(Wire::reply().str16(u"two").bytes());
    answerStatus(-1);
    const android::Vector<String16> names = transport.names(15);
    ASSERT_EQ(names.size(), 2u);
    EXPECT_TRUE(names[0] == String16("one"));
    EXPECT_TRUE(names[1] == String16("two"));
}

} // namespace
} // namespace kelutv::test
