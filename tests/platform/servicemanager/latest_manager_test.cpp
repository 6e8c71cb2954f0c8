#include "ManagerTest.h"

#include "support/Capture.h"
#include "support/Deadline.h"

#include <string>
#include <vector>

namespace kelutv::test {
namespace {

/** What the manager of level 30 alone does. */
class LatestManager : public ManagerTest {
protected:
    static constexpr uint32_t kRegister = 5;
    static constexpr uint32_t kUnregister = 6;
    static constexpr uint32_t kDeclared = 7;
    static constexpr uint32_t kClientCallback = 8;
    static constexpr uint32_t kTryUnregister = 9;
    static constexpr int kSecurity = -1;
    static constexpr int kIllegalArgument = -3;
    static constexpr int kNullPointer = -4;
    static constexpr int kIllegalState = -5;
    static constexpr int kUnsupported = -7;

    LatestManager() : ManagerTest(30) {}

    /** Registers a callback, or takes it back, for the name: the outcome. */
    int change(uint32_t code, const std::u16string& name, uint32_t callback, uid_t caller = kShell) {
        Wire wire = request().str16(name.c_str());
        const size_t object = wire.bytes().size();
        const Bytes flat = objectOf(callback);
        wire.raw(flat.data(), flat.size()).i32(12);
        return outcomeOf(ask(code, wire.bytes(), caller, object));
    }

    struct Told {
        uint32_t callback;
        Bytes content;
    };
    /** What callbacks were told since the last look. */
    std::vector<Told> told() {
        std::vector<Told> calls;
        for (const Command& sent : driver.takeSent()) {
            if (sent.code == BC_TRANSACTION) {
                const auto message = sent.as<binder_transaction_data>();
                EXPECT_EQ(message.code, 1u);
                EXPECT_EQ(message.flags, static_cast<uint32_t>(TF_ONE_WAY));
                calls.push_back({message.target.handle, sent.content});
            }
        }
        return calls;
    }

    /** What a callback hears of a service. */
    static Bytes registration(const char16_t* name, uint32_t handle, int32_t stability = 12) {
        Wire wire = Wire::token(30, u"android.os.IServiceCallback").str16(name);
        flat_binder_object object{};
        object.hdr.type = BINDER_TYPE_HANDLE;
        object.flags = 0x7F;
        object.handle = handle;
        return wire.raw(&object, sizeof(object)).i32(stability).bytes();
    }

    /** As add, while one callback is told. */
    int addTold(const std::string& name, uint32_t handle, const Added& added = {}) {
        driver.say({command(BR_TRANSACTION_COMPLETE)});
        return add(name, handle, added);
    }
};

TEST_F(LatestManager, tellsACallbackOfEachServiceThatComes) {
    ASSERT_EQ(change(kRegister, u"tv", 9), 0);
    EXPECT_TRUE(told().empty());
    ASSERT_EQ(addTold("tv", 5), 0);
    std::vector<Told> calls = told();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].callback, 9u);
    EXPECT_EQ(hex(calls[0].content), hex(registration(u"tv", 5)));
    ASSERT_EQ(addTold("tv", 6), 0);
    calls = told();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(hex(calls[0].content), hex(registration(u"tv", 6)));
    ASSERT_EQ(add("radio", 7), 0);
    EXPECT_TRUE(told().empty()) << "of another name";
}

TEST_F(LatestManager, tellsACallbackAtOnceOfAServiceThatIsThere) {
    ASSERT_EQ(add("tv", 5), 0);
    driver.say({command(BR_TRANSACTION_COMPLETE)});
    ASSERT_EQ(change(kRegister, u"tv", 9), 0);
    const std::vector<Told> calls = told();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(hex(calls[0].content), hex(registration(u"tv", 5)));
}

TEST_F(LatestManager, tellsACallbackNoMoreThatWasTakenBack) {
    ASSERT_EQ(change(kRegister, u"tv", 9), 0);
    EXPECT_EQ(change(kUnregister, u"radio", 9), kIllegalState);
    EXPECT_EQ(change(kUnregister, u"tv", 8), kIllegalState);
    EXPECT_EQ(change(kUnregister, u"tv", 9), 0);
    EXPECT_EQ(change(kUnregister, u"tv", 9), kIllegalState);
    told();
    ASSERT_EQ(add("tv", 5), 0);
    EXPECT_TRUE(told().empty());
}

TEST_F(LatestManager, dropsCallbacksWithTheirProcess) {
    ASSERT_EQ(change(kRegister, u"tv", 9), 0);
    const binder_uintptr_t cookie = cookieOf(9);
    ASSERT_NE(cookie, 0u);
    driver.sayToServers({command(BR_DEAD_BINDER, cookie)});
    EXPECT_TRUE(driver.waitForSent(BC_CLEAR_DEATH_NOTIFICATION)) << "its object is let go";
    EXPECT_EQ(change(kUnregister, u"tv", 9), kIllegalState);
    told();
    ASSERT_EQ(add("tv", 5), 0);
    EXPECT_TRUE(told().empty());
}

TEST_F(LatestManager, takesCallbacksOnlyForWhatCanBeAdded) {
    EXPECT_EQ(change(kRegister, u"", 9), kIllegalArgument);
    EXPECT_EQ(change(kRegister, u"t v", 9), kIllegalArgument);
    EXPECT_EQ(change(kRegister, u"tv", 9, kIsolated), kSecurity);
    EXPECT_EQ(outcomeOf(ask(kRegister, request().str16(u"tv").bytes())), kNullPointer);
    EXPECT_EQ(outcomeOf(ask(kRegister, request().bytes())), kNullPointer);
}

TEST_F(LatestManager, takesALimitedNumberOfCallbacks) {
    for (uint32_t handle = 1; handle <= 1024; ++handle) {
        ASSERT_EQ(change(kRegister, u"tv", handle), 0) << handle;
    }
    EXPECT_EQ(change(kRegister, u"tv", 1025), kIllegalState);
    EXPECT_EQ(change(kUnregister, u"tv", 1), 0);
    EXPECT_EQ(change(kRegister, u"tv", 1025), 0);
}

TEST_F(LatestManager, givesTheStabilityThatAServiceCameWith) {
    Added vintf;
    vintf.stability = 63;
    ASSERT_EQ(add("tv", 5, vintf), 0);
    const Bytes answer = ask(kCheck, request().str16(u"tv").bytes()).bytes;
    ASSERT_EQ(answer.size(), 4 + sizeof(flat_binder_object) + 4);
    EXPECT_EQ(Bytes(answer.end() - 4, answer.end()), replyOf({63}));
}

TEST_F(LatestManager, takesNamesOfLettersDigitsAndFourMarks) {
    EXPECT_EQ(add("azAZ09_-./", 5), 0);
    for (const char* const wrong : {"t v", "tv:", "tv@", "[tv", "`tv", "{tv", "t\xC3\xA9"}) {
        EXPECT_EQ(add(wrong, 5), kIllegalArgument) << wrong;
    }
}

TEST_F(LatestManager, refusesARequestThatEndsEarly) {
    Wire wire = request().str16(u"tv");
    const size_t object = wire.bytes().size();
    const Bytes flat = objectOf(5);
    wire.raw(flat.data(), flat.size());
    for (int words = 0; words < 3; ++words) {
        EXPECT_EQ(ask(kAdd, wire.bytes(), kSystem, object).status, android::NOT_ENOUGH_DATA) << words;
        wire.i32(1);
    }
    EXPECT_EQ(ask(kList, request().bytes()).status, android::NOT_ENOUGH_DATA);
    EXPECT_EQ(outcomeOf(ask(kCheck, request().bytes())), kNullPointer);
    EXPECT_EQ(outcomeOf(ask(kAdd, request().bytes())), kNullPointer);
    EXPECT_EQ(found("tv"), 0u);
}

TEST_F(LatestManager, declaresNothing) {
    EXPECT_EQ(ask(kDeclared, request().str16(u"tv").bytes()).bytes, replyOf({0, 0}));
}

TEST_F(LatestManager, saysThatServicesStayWithTheirProcess) {
    EXPECT_EQ(outcomeOf(ask(kClientCallback, request().bytes())), kUnsupported);
    EXPECT_EQ(outcomeOf(ask(kTryUnregister, request().bytes())), kUnsupported);
}

} // namespace
} // namespace kelutv::test
