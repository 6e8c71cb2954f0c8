#include "ManagerTest.h"

#include "support/Capture.h"
#include "support/Deadline.h"

#include <kqlog/capture.h>

#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <thread>

namespace kelutv::test {
namespace {

/** What the managers of all levels do. */
class ManagerOfAnyLevel : public ManagerTest, public ::testing::WithParamInterface<int> {
protected:
    ManagerOfAnyLevel() : ManagerTest(GetParam()) {}

    class AskingSink;

    /** What a manager of the level answers to what it does not take. */
    int refusal(int exception) const { return level == 30 ? exception : -1; }
};

constexpr int kSecurityException = -1;
constexpr int kIllegalArgumentException = -3;
constexpr int kNullPointerException = -4;

TEST_P(ManagerOfAnyLevel, findsAnAddedServiceForAnyone) {
    ASSERT_EQ(add("tv", 5), 0);
    EXPECT_EQ(found("tv", kShell, kGet), 5u);
    EXPECT_EQ(found("tv", kSystem, kCheck), 5u);
    EXPECT_EQ(found("t"), 0u);
    EXPECT_EQ(found(""), 0u);
}

TEST_P(ManagerOfAnyLevel, givesTheNameToALaterService) {
    LogCapture log;
    ASSERT_EQ(add("tv", 5), 0);
    ASSERT_EQ(add("tv", 6), 0);
    EXPECT_EQ(found("tv"), 6u);
    EXPECT_EQ(listed(), "tv");
    size_t told = 0;
    for (const LogEntry& entry : log.take()) {
        told += entry.text == "the service tv is replaced" ? 1 : 0;
    }
    EXPECT_EQ(told, 1u);
}

TEST_P(ManagerOfAnyLevel, takesNamesOfOneTo127Characters) {
    EXPECT_EQ(add("", 5), refusal(kIllegalArgumentException));
    EXPECT_EQ(add(std::string(128, 'a'), 5), refusal(kIllegalArgumentException));
    EXPECT_EQ(add(std::string(127, 'a'), 5), 0);
    EXPECT_EQ(found(std::string(127, 'a')), 5u);
}

TEST_P(ManagerOfAnyLevel, takesNoServiceThatIsNull) {
    Wire wire = request().str16(u"tv").i32(static_cast<int32_t>(BINDER_TYPE_BINDER));
    for (int words = 0; words < 8; ++words) {
        wire.i32(0);
    }
    EXPECT_EQ(outcomeOf(ask(kAdd, wire.bytes())), refusal(kNullPointerException));
    EXPECT_EQ(found("tv"), 0u);
}

TEST_P(ManagerOfAnyLevel, letsOnlyRegistrarsAdd) {
    LogCapture log;
    Added added;
    added.by = kShell;
    EXPECT_EQ(add("tv", 5, added), refusal(kSecurityException));
    EXPECT_EQ(found("tv"), 0u);
    size_t told = 0;
    for (const LogEntry& entry : log.take()) {
        told += entry.text == "uid 2000 may not add the service tv" ? 1 : 0;
    }
    EXPECT_EQ(told, 1u);
    added.by = 0;
    EXPECT_EQ(add("tv", 5, added), 0);
}

TEST_P(ManagerOfAnyLevel, showsIsolatedUsersWhatIsAllowedForThem) {
    Added open;
    open.allowIsolated = true;
    ASSERT_EQ(add("closed", 5), 0);
    ASSERT_EQ(add("open", 6, open), 0);
    EXPECT_EQ(found("closed", kIsolated), 0u);
    EXPECT_EQ(found("open", kIsolated), 6u);
    EXPECT_EQ(found("closed", 100'000), 5u);
}

TEST_P(ManagerOfAnyLevel, listsServicesByTheirPriorities) {
    EXPECT_EQ(listed(), "");
    Added critical;
    critical.priority = 1;
    ASSERT_EQ(add("b", 5, critical), 0);
    ASSERT_EQ(add("a", 6), 0);
    EXPECT_EQ(listed(), "a b");
    EXPECT_EQ(listed(1), "b");
    EXPECT_EQ(listed(8), "a");
    EXPECT_EQ(listed(2), "");
}

TEST_P(ManagerOfAnyLevel, refusesARequestOfAnotherInterface) {
    LogCapture log;
    const int32_t refused = level == 30 ? android::BAD_TYPE : -1;
    EXPECT_EQ(ask(kCheck, Wire::token(level, u"android.ITVBaseService").str16(u"tv").bytes()).status, refused);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "request of binder level " + std::to_string(level) +
                                   " names the interface \"android.ITVBaseService\" and not "
                                   "\"android.os.IServiceManager\"");
}

TEST_P(ManagerOfAnyLevel, answersAnUnknownCallAsItsLevelDoes) {
    EXPECT_EQ(ask(10, request().bytes()).status, level == 30 ? android::UNKNOWN_TRANSACTION : -1);
    EXPECT_EQ(ask(0, request().bytes()).status, level == 30 ? android::UNKNOWN_TRANSACTION : -1);
    if (level < 30) {
        EXPECT_EQ(ask(5, request().str16(u"tv").bytes()).status, -1);
    }
}

TEST_P(ManagerOfAnyLevel, isAliveAndTellsItsInterface) {
    EXPECT_EQ(ask(android::IBinder::PING_TRANSACTION, {}).status, android::NO_ERROR);
    EXPECT_EQ(ask(android::IBinder::INTERFACE_TRANSACTION, {}).bytes,
              Wire::reply().str16(u"android.os.IServiceManager").bytes());
}

/** A log that is not written to its end before the manager has answered another thread. */
class ManagerOfAnyLevel::AskingSink : public kqlog::Sink {
public:
    explicit AskingSink(ManagerOfAnyLevel& test) : mTest(test) { kqlog::installSink(this); }
    ~AskingSink() override { kqlog::removeSink(); }

    void write(int, const char*, const char* text) override {
        mText = text;
        // Left to itself should it never be answered.
        auto answer = std::make_shared<std::promise<void>>();
        std::thread([this, answer] {
            mTest.found("other");
            answer->set_value();
        }).detach();
        mAnswered = answer->get_future().wait_for(kPatience) == std::future_status::ready;
    }

    bool answered() const { return mAnswered; }
    const std::string& text() const { return mText; }

private:
    ManagerOfAnyLevel& mTest;
    std::string mText;
    std::atomic<bool> mAnswered{false};
};

TEST_P(ManagerOfAnyLevel, forgetsAServiceWithItsProcess) {
    ASSERT_EQ(add("tv", 5), 0);
    const binder_uintptr_t cookie = cookieOf(5);
    ASSERT_EQ(add("other", 6), 0);
    const AskingSink asking(*this);
    driver.sayToServers({command(BR_DEAD_BINDER, cookie)});
    EXPECT_TRUE(eventually([this] { return found("tv") == 0; }));
    EXPECT_EQ(found("other"), 6u);
    EXPECT_TRUE(eventually([&asking] { return asking.answered(); })) << "nobody is answered while a line is written";
    EXPECT_EQ(asking.text(), "the process of the service tv is gone");
}

INSTANTIATE_TEST_SUITE_P(Each, ManagerOfAnyLevel, ::testing::Values(28, 29, 30), ::testing::PrintToStringParamName());

using Manager = ManagerTest;

TEST_F(Manager, answersEachRequestByTheLevelOfItsToken) {
    ASSERT_EQ(add("tv", 5), 0);
    const Bytes latest = ask(kCheck, Wire::token(30, u"android.os.IServiceManager").str16(u"tv").bytes()).bytes;
    const Bytes earlier = ask(kCheck, Wire::token(29, u"android.os.IServiceManager").str16(u"tv").bytes()).bytes;
    EXPECT_EQ(latest.size(), 4 + sizeof(flat_binder_object) + 4);
    // The service said nothing of its form, so it has that of all that belongs to the system.
    EXPECT_EQ(Bytes(latest.end() - 4, latest.end()), replyOf({12}));
    EXPECT_EQ(earlier.size(), sizeof(flat_binder_object));
}

TEST_F(Manager, refusesATokenThatHasNoKnownForm) {
    LogCapture log;
    EXPECT_EQ(ask(kCheck, {}).status, -1);
    EXPECT_EQ(ask(kCheck, replyOf({0x400000, -1, 0x564E4452, 26, 5})).status, -1);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 2u);
    const std::string rest = ", which is no token of binder level 28, 29 or 30, and not with that of "
                             "\"android.os.IServiceManager\"";
    EXPECT_EQ(entries[0].text, "request begins with nothing" + rest);
    EXPECT_EQ(entries[1].text, "request begins with 00400000 FFFFFFFF 564E4452 0000001A" + rest);
}

TEST_F(Manager, knowsNoServiceThatDiesWhileItIsEntered) {
    const LogCapture log;
    for (uint32_t round = 1; round <= 100; ++round) {
        std::thread driversWord([this, round] {
            binder_uintptr_t cookie = 0;
            EXPECT_TRUE(eventually([&] { return (cookie = cookieOf(round)) != 0; }));
            driver.sayToServers({command(BR_DEAD_BINDER, cookie)});
        });
        const int outcome = add("tv", round);
        driversWord.join();
        ASSERT_EQ(outcome, 0);
        ASSERT_TRUE(eventually([this] { return found("tv") == 0; }));
    }
}

} // namespace
} // namespace kelutv::test
