#include "KernelTest.h"

#include "droid/LocalObjects.h"
#include "droid/ParcelObjects.h"
#include "platform/droid/peer/PeerService.h"
#include "support/Capture.h"

#include <algorithm>
#include <cerrno>

namespace kelutv::test {
namespace {

using android::DEAD_OBJECT;
using android::FAILED_TRANSACTION;
using android::IBinder;
using android::LocalObjects;
using android::NO_ERROR;
using android::Parcel;
using android::sp;

using KernelCall = KernelTest;

TEST_F(KernelCall, isOneTransactionToTheHandle) {
    driver.say({command(BR_NOOP), command(BR_TRANSACTION_COMPLETE)});
    driver.say({command(BR_REPLY, driver.message(replyOf({5})))});
    Parcel reply;
    EXPECT_EQ(call(3, replyOf({1, 2}), &reply), NO_ERROR);
    EXPECT_EQ(reply.readInt32(), 5);
    const std::vector<Command> sent = driver.takeSent();
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].code, static_cast<uint32_t>(BC_TRANSACTION));
    const auto message = sent[0].as<binder_transaction_data>();
    EXPECT_EQ(message.target.handle, kHandle);
    EXPECT_EQ(message.code, 3u);
    EXPECT_EQ(message.flags, 0u);
    EXPECT_EQ(message.data_size, 8u);
    EXPECT_EQ(message.offsets_size, 0u);
}

TEST_F(KernelCall, replyThatIsWrittenToIsCopied) {
    driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, driver.message(replyOf({5, 6, 7})))});
    Parcel reply;
    ASSERT_EQ(call(3, {}, &reply), NO_ERROR);
    EXPECT_EQ(reply.writeInt32(9), NO_ERROR);
    reply.setDataPosition(0);
    EXPECT_EQ(reply.readInt32(), 9);
    EXPECT_EQ(reply.readInt32(), 6);
    EXPECT_EQ(reply.readInt32(), 7);
}

TEST_F(KernelCall, replyThatIsWrittenToHasNoObjects) {
    flat_binder_object object{};
    object.hdr.type = BINDER_TYPE_HANDLE;
    object.handle = 5;
    const auto* const bytes = reinterpret_cast<const uint8_t*>(&object);
    driver.say({command(BR_TRANSACTION_COMPLETE),
                command(BR_REPLY, driver.message(Bytes(bytes, bytes + sizeof(object)), {0}))});
    Parcel reply;
    ASSERT_EQ(call(3, {}, &reply), NO_ERROR);
    reply.writeInt32(static_cast<int32_t>(object.hdr.type));
    reply.setDataPosition(0);
    EXPECT_EQ(binder.readObject(reply), nullptr) << "its handle went with the buffer";
    EXPECT_EQ(driver.takeSentCodes(), (std::vector<uint32_t>{BC_TRANSACTION, BC_FREE_BUFFER}));
}

TEST_F(KernelCall, failuresOfTheDriverAreStatuses) {
    const struct {
        uint32_t returned;
        android::status_t status;
    } cases[] = {
        {BR_DEAD_REPLY, DEAD_OBJECT}, {BR_FAILED_REPLY, FAILED_TRANSACTION}, {BR_FROZEN_REPLY, FAILED_TRANSACTION}};
    for (const auto& one : cases) {
        driver.say({command(BR_NOOP), command(one.returned)});
        Parcel reply;
        EXPECT_EQ(call(3, {}, &reply), one.status) << one.returned;
        EXPECT_EQ(reply.dataSize(), 0u);
        driver.say({command(BR_TRANSACTION_COMPLETE), command(one.returned)});
        EXPECT_EQ(call(3, {}, &reply), one.status) << one.returned;
    }
}

TEST_F(KernelCall, handlersStatusComesBackWithAnEmptyReply) {
    binder_transaction_data message = driver.message(replyOf({-22}));
    message.flags = TF_STATUS_CODE;
    driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, message)});
    Parcel reply;
    EXPECT_EQ(call(3, {}, &reply), -22);
    EXPECT_EQ(reply.dataSize(), 0u);
}

TEST_F(KernelCall, statusThatIsCutShortIsAnUnknownError) {
    binder_transaction_data message = driver.message({1, 2});
    message.flags = TF_STATUS_CODE;
    driver.say({command(BR_REPLY, message)});
    EXPECT_EQ(call(3, {}, nullptr), android::UNKNOWN_ERROR);
}

TEST_F(KernelCall, oneWayCallWaitsForItsAcceptanceOnly) {
    driver.say({command(BR_TRANSACTION_COMPLETE)});
    EXPECT_EQ(call(3, replyOf({1}), nullptr, IBinder::FLAG_ONEWAY), NO_ERROR);
    EXPECT_EQ(driver.takeSent().at(0).as<binder_transaction_data>().flags, static_cast<uint32_t>(TF_ONE_WAY));
    driver.say({command(BR_DEAD_REPLY)});
    EXPECT_EQ(call(3, replyOf({1}), nullptr, IBinder::FLAG_ONEWAY), DEAD_OBJECT);
}

TEST_F(KernelCall, oneWayCallToAFrozenProcessIsAccepted) {
    driver.say({command(_IO('r', 20))});
    EXPECT_EQ(call(3, replyOf({1}), nullptr, IBinder::FLAG_ONEWAY), NO_ERROR);
}

TEST_F(KernelCall, whatTheDriverLeavesGoesOutAgain) {
    driver.takeNothingNext();
    driver.say({command(BR_NOOP), command(BR_ERROR, int32_t{-12})}); // of something before
    driver.say({command(BR_TRANSACTION_COMPLETE)});
    driver.say({command(BR_REPLY, driver.message(replyOf({5})))});
    Parcel reply;
    EXPECT_EQ(call(3, replyOf({1, 2}), &reply), NO_ERROR);
    EXPECT_EQ(reply.readInt32(), 5);
    const std::vector<Command> sent = driver.takeSent();
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].code, static_cast<uint32_t>(BC_TRANSACTION));
    EXPECT_EQ(sent[0].content, replyOf({1, 2}));
}

TEST_F(KernelCall, nothingIsLostWhileTheDriverTakesNothing) {
    constexpr size_t kRounds = 3;
    constexpr size_t kAcquires = 20;
    const sp<PeerService> object = new PeerService;
    const uint64_t number = LocalObjects::instance().hold(object);
    driver.takeNothingNext(kRounds);
    for (size_t round = 0; round < kRounds; ++round) {
        driver.say(std::vector<Command>(kAcquires, command(BR_ACQUIRE, binder_ptr_cookie{number, number})));
    }
    driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, driver.message(replyOf({5})))});
    Parcel reply;
    EXPECT_EQ(call(3, {}, &reply), NO_ERROR);
    const std::vector<uint32_t> sent = driver.takeSentCodes();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), BC_ACQUIRE_DONE), static_cast<long>(kRounds * kAcquires));
    EXPECT_EQ(std::count(sent.begin(), sent.end(), BC_TRANSACTION), 1);
    for (size_t hold = 0; hold <= kRounds * kAcquires; ++hold) {
        LocalObjects::instance().release(number);
    }
}

TEST_F(KernelCall, requestThatTheDriverDoesNotTakeFailsAndIsNotSentLater) {
    const LogCapture log;
    driver.failNext(-ENOMEM);
    EXPECT_EQ(call(3, replyOf({1}), nullptr), FAILED_TRANSACTION);
    EXPECT_TRUE(driver.takeSent().empty());
    driver.say({command(BR_DEAD_REPLY)});
    EXPECT_EQ(call(4, replyOf({2}), nullptr), DEAD_OBJECT);
    const std::vector<Command> sent = driver.takeSent();
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].as<binder_transaction_data>().code, 4u);
    EXPECT_EQ(driver.threadExits(), 0);
}

TEST_F(KernelCall, replyIsReadAfterAShortageThatPasses) {
    LogCapture log;
    driver.failNextReads(-ENOMEM, 3);
    driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, driver.message(replyOf({5})))});
    Parcel reply;
    EXPECT_EQ(call(3, replyOf({1}), &reply), NO_ERROR);
    EXPECT_EQ(reply.readInt32(), 5);
    EXPECT_EQ(driver.takeSentCodes(), std::vector<uint32_t>{BC_TRANSACTION});
    EXPECT_EQ(log.take().size(), 1u) << "one line for one shortage";
}

TEST_F(KernelCall, replyThatCannotBeReadIsGivenUpAndForgotten) {
    const LogCapture log;
    driver.failNextReads(-ENOMEM, 1000);
    EXPECT_EQ(call(3, replyOf({1}), nullptr), FAILED_TRANSACTION);
    EXPECT_EQ(driver.threadExits(), 0);
    driver.failNextReads(0, 0);
    driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, driver.message(replyOf({6})))});
    Parcel reply;
    EXPECT_EQ(call(4, {}, &reply), NO_ERROR);
    EXPECT_EQ(reply.readInt32(), 6);
    EXPECT_EQ(driver.threadExits(), 1) << "the driver drops what it had for the thread";
}

TEST_F(KernelCall, driverThatFailsIsNamedInTheLog) {
    LogCapture log;
    EXPECT_EQ(call(3, {}, nullptr), FAILED_TRANSACTION);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "binder driver: No data available");
}

TEST_F(KernelCall, readBeyondTheRoomIsAFailure) {
    const LogCapture log;
    driver.overstateNextRead();
    driver.say({command(BR_NOOP)});
    EXPECT_EQ(call(3, {}, nullptr), FAILED_TRANSACTION);
}

TEST_F(KernelCall, commandThatIsCutShortIsNotTaken) {
    Bytes half(sizeof(uint32_t) + 10);
    const uint32_t code = BR_REPLY;
    std::memcpy(half.data(), &code, sizeof(code));
    driver.say(half);
    driver.say(Bytes{1, 2});
    driver.say({command(BR_DEAD_REPLY)});
    EXPECT_EQ(call(3, {}, nullptr), DEAD_OBJECT);
}

TEST_F(KernelCall, unknownCommandIsPassedOver) {
    driver.say(
        {command(_IOR('r', 99, uint64_t), uint64_t{1}), command(BR_ONEWAY_SPAM_SUSPECT), command(BR_DEAD_REPLY)});
    EXPECT_EQ(call(3, {}, nullptr), DEAD_OBJECT);
}

TEST_F(KernelCall, replyOutsideTheDriversMemoryIsNotRead) {
    const LogCapture log;
    const Bytes elsewhere(64);
    binder_transaction_data inside = driver.message(replyOf({1}));
    binder_transaction_data outside = inside;
    outside.data.ptr.buffer = reinterpret_cast<uintptr_t>(elsewhere.data());
    binder_transaction_data tooLong = inside;
    tooLong.data_size = 1 << 20;
    binder_transaction_data endless = inside;
    endless.data_size = UINT64_MAX;
    binder_transaction_data offsetsOutside = inside;
    offsetsOutside.offsets_size = 8;
    offsetsOutside.data.ptr.offsets = reinterpret_cast<uintptr_t>(elsewhere.data());
    for (const binder_transaction_data& bad : {outside, tooLong, endless, offsetsOutside}) {
        driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, bad)});
        Parcel reply;
        EXPECT_EQ(call(3, {}, &reply), FAILED_TRANSACTION);
        EXPECT_EQ(reply.dataSize(), 0u);
    }
}

} // namespace
} // namespace kelutv::test
