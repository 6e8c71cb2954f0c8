#include "FakeDriver.h"

#include "droid/LocalObjects.h"
#include "droid/ParcelObjects.h"
#include "droid/kernel/KernelTransport.h"
#include "platform/droid/peer/PeerService.h"
#include "support/Capture.h"
#include "support/Deadline.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

namespace kelutv::test {
namespace {

using android::IBinder;
using android::KernelTransport;
using android::NO_ERROR;
using android::sp;
using android::String16;

constexpr uint32_t kAdd = 3;

/** The calls to a service manager that the test plays. */
class KernelServices : public ::testing::Test {
protected:
    KernelServices() : KernelServices(std::make_unique<FakeDriver>()) {}

    /** The manager's next answer. */
    void answer(const Bytes& content, const std::vector<binder_size_t>& offsets = {}) {
        driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, driver.message(content, offsets))});
    }
    void answerStatus(int32_t status) {
        binder_transaction_data message = driver.message(replyOf({status}));
        message.flags = TF_STATUS_CODE;
        driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, message)});
    }

    static Bytes object(uint32_t type, uint64_t number) {
        flat_binder_object flat{};
        flat.hdr.type = type;
        flat.binder = number;
        flat.cookie = number;
        const auto* const bytes = reinterpret_cast<const uint8_t*>(&flat);
        return Bytes(bytes, bytes + sizeof(flat));
    }

    FakeDriver& driver;
    KernelTransport& transport;

private:
    explicit KernelServices(std::unique_ptr<FakeDriver> fake)
        : driver(*fake), transport(*kept().emplace_back(new KernelTransport(std::move(fake)))) {}

    static std::vector<std::unique_ptr<KernelTransport>>& kept() {
        static auto* const all = new std::vector<std::unique_ptr<KernelTransport>>;
        return *all;
    }
};

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
    // Strict-mode word, work source, the manager's descriptor, the name.
    EXPECT_EQ(sent[0].content,
              Wire::reply().i32(0).i32(-1).str16(u"android.os.IServiceManager").str16(u"some").bytes());
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
    // Two words, "android.os.IServiceManager", "some", the object, two words.
    EXPECT_EQ(added.data_size, 8u + (4 + 56) + (4 + 12) + 24 + 8);
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
