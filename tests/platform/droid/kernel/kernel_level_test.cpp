#include "KernelServices.h"

#include "platform/droid/peer/PeerService.h"
#include "support/Capture.h"

#include <binder/IPCThreadState.h>
#include <binder/Parcel.h>

#include <cstdlib>
#include <string>

namespace kelutv::test {
namespace {

using android::NO_ERROR;
using android::Parcel;
using android::String16;

constexpr uint32_t kAdd = 3;
constexpr uint32_t kList = 4;

/** What a process of the level in its environment writes, and how it understands a manager of that level. */
class LevelOfThisProcess : public KernelServices {
protected:
    const int level = std::atoi(std::getenv("KQDROID_BINDER_LEVEL"));

    /** The exception word that leads every answer of level 30. */
    Wire success() const { return level == 30 ? Wire::reply().i32(0) : Wire::reply(); }
    Wire request() const { return Wire::token(level, u"android.os.IServiceManager"); }

    /** Answers with an object. */
    void answerObject(uint32_t handle) {
        const size_t at = success().bytes().size();
        const Bytes flat = object(BINDER_TYPE_HANDLE, handle);
        Wire wire = success().raw(flat.data(), flat.size());
        answer(level == 30 ? wire.i32(12).bytes() : wire.bytes(), {at});
    }
    /** Answers that there is no object. */
    void answerNoObject() {
        const Bytes flat = object(BINDER_TYPE_BINDER, 0);
        answer(level == 30 ? success().raw(flat.data(), flat.size()).i32(0).bytes() : replyOf({0}));
    }

    /** The contents of the transactions since the last look, by their codes. */
    std::vector<std::pair<uint32_t, Bytes>> asked() {
        std::vector<std::pair<uint32_t, Bytes>> calls;
        for (const Command& sent : driver.takeSent()) {
            if (sent.code == BC_TRANSACTION) {
                calls.emplace_back(sent.as<binder_transaction_data>().code, sent.content);
            }
        }
        return calls;
    }
};

TEST_F(LevelOfThisProcess, isThatOfItsTokens) {
    Parcel parcel;
    EXPECT_EQ(parcel.writeInterfaceToken(String16("android.ITVBaseService")), NO_ERROR);
    EXPECT_EQ(hex(Bytes(parcel.data(), parcel.data() + parcel.dataSize())),
              hex(Wire::token(level, u"android.ITVBaseService").bytes()));
    EXPECT_EQ(parcel.dataSize(), level == 30 ? 12u + 52u : 8u + 52u);
}

TEST_F(LevelOfThisProcess, isNotedWhenTheFirstRequestHasAnother) {
    LogCapture log;
    for (const int other : {level, 28, 28, level}) {
        Parcel parcel;
        const Bytes token = Wire::token(other, u"a.B").bytes();
        parcel.setData(token.data(), token.size());
        EXPECT_TRUE(parcel.enforceInterface(String16("a.B")));
    }
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text,
              "there are requests of binder level 28; this process writes level " + std::to_string(level));
}

TEST_F(LevelOfThisProcess, isThatOfTheManagerThatItAsks) {
    answerNoObject();
    EXPECT_EQ(transport.find(String16("some")), nullptr);
    answerObject(5);
    EXPECT_NE(transport.find(String16("some")), nullptr);
    for (const auto& [code, content] : asked()) {
        EXPECT_EQ(code, 2u);
        EXPECT_EQ(hex(content), hex(request().str16(u"some").bytes()));
    }
}

TEST_F(LevelOfThisProcess, isThatOfWhatItAdds) {
    const android::sp<android::BBinder> own = new PeerService;
    answerNoObject();
    answer(replyOf({0}));
    EXPECT_EQ(transport.publish(String16("some"), own, {true, 8}), NO_ERROR);
    const auto calls = asked();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[1].first, kAdd);
    const Bytes head = request().str16(u"some").bytes();
    const Bytes tail = level == 30 ? replyOf({12, 1, 8}) : replyOf({1, 8});
    const Bytes& added = calls[1].second;
    ASSERT_EQ(added.size(), head.size() + sizeof(flat_binder_object) + tail.size());
    EXPECT_EQ(Bytes(added.begin(), added.begin() + static_cast<long>(head.size())), head);
    EXPECT_EQ(Bytes(added.end() - static_cast<long>(tail.size()), added.end()), tail);
}

TEST_F(LevelOfThisProcess, isThatOfARefusal) {
    LogCapture log;
    answerNoObject();
    if (level == 30) {
        answer(replyOf({-3, 0, 0, 0})); // an exception, an empty message, no stack
    } else {
        answerStatus(-1);
    }
    const int refused = level == 30 ? -3 : -1;
    EXPECT_EQ(transport.publish(String16("some"), new PeerService, {false, 8}), refused);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "serving some: the service manager gives status " + std::to_string(refused));
}

TEST_F(LevelOfThisProcess, isThatOfTheListOfServices) {
    if (level == 30) {
        answer(replyOf({0, 2}), {});
        EXPECT_EQ(transport.names(15).size(), 0u) << "its names are missing";
        answer(Wire::reply().i32(0).i32(2).str16(u"one").str16(u"two").bytes());
    } else {
        answer(Wire::reply().str16(u"one").bytes());
        answer(Wire::reply().str16(u"two").bytes());
        answerStatus(-1);
    }
    driver.takeSent();
    const android::Vector<String16> names = transport.names(15);
    ASSERT_EQ(names.size(), 2u);
    EXPECT_TRUE(names[0] == String16("one"));
    EXPECT_TRUE(names[1] == String16("two"));
    const auto calls = asked();
    ASSERT_EQ(calls.size(), level == 30 ? 1u : 3u);
    EXPECT_EQ(calls.back().first, kList);
    EXPECT_EQ(calls.back().second, level == 30 ? request().i32(15).bytes() : request().i32(2).i32(15).bytes());
}

} // namespace
} // namespace kelutv::test
