#include "DriverUser.h"
#include "platform/droid/Calls.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <linux/android/binder.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <optional>

namespace kelutv::test {
namespace {

constexpr size_t kUsualMemory = 1024 * 1024 - 8 * 1024;
constexpr size_t kTwoMebibytes = 2 * 1024 * 1024;

/** A child that is the context manager and does something with each call. */
class ContextManager {
public:
    explicit ContextManager(const std::function<void(DriverUser&)>& onCall) {
        int ready[2] = {-1, -1};
        EXPECT_EQ(::pipe(ready), 0);
        mPid = ::fork();
        if (mPid == 0) {
            serve(ready[1], onCall);
        }
        ::close(ready[1]);
        char byte = 0;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1) << "the child is not the context manager";
        ::close(ready[0]);
    }

    ~ContextManager() { kill(); }
    ContextManager(const ContextManager&) = delete;
    ContextManager& operator=(const ContextManager&) = delete;

    void kill() {
        if (mPid > 0) {
            ::kill(mPid, SIGKILL);
            ::waitpid(mPid, nullptr, 0);
            mPid = -1;
        }
    }

private:
    [[noreturn]] static void serve(int ready, const std::function<void(DriverUser&)>& onCall) {
        std::optional<DriverUser> driver;
        // One that has just ended keeps its place until the driver has cleaned up after it.
        const bool inPlace = eventually([&] {
            try {
                driver.emplace(kUsualMemory).becomeContextManager();
                return true;
            } catch (const std::exception&) {
                return false;
            }
        });
        if (!inPlace) {
            ::_exit(1);
        }
        driver->enterLooper();
        if (::write(ready, "", 1) != 1) {
            ::_exit(1);
        }
        while (driver->nextCall().command == BR_TRANSACTION) {
            onCall(*driver);
        }
        ::_exit(0);
    }

    pid_t mPid = -1;
};

void answer(DriverUser& driver) { driver.answer(); }

void die(DriverUser&) { ::_exit(0); }

/** What the library's failure values rest on. */
class DriverAnswers : public ::testing::Test {
protected:
    DriverUser mUser{kUsualMemory};
};

TEST_F(DriverAnswers, protocolIsVersionEight) { EXPECT_EQ(mUser.protocolVersion(), 8); }

TEST_F(DriverAnswers, callWithoutAContextManagerIsDead) { EXPECT_EQ(mUser.callContextManager(4), BR_DEAD_REPLY); }

TEST_F(DriverAnswers, callToAServerIsAnswered) {
    const ContextManager server(answer);
    EXPECT_EQ(mUser.callContextManager(4), BR_REPLY);
}

TEST_F(DriverAnswers, callToADeadServerIsDead) {
    ContextManager server(answer);
    EXPECT_EQ(mUser.callContextManager(4), BR_REPLY);
    server.kill();
    EXPECT_EQ(mUser.callContextManager(4), BR_DEAD_REPLY);
}

TEST_F(DriverAnswers, callThatTheServerDiesInIsDead) {
    const ContextManager server(die);
    EXPECT_EQ(mUser.callContextManager(4), BR_DEAD_REPLY);
}

TEST_F(DriverAnswers, callLargerThanTheServersMemoryFails) {
    const ContextManager server(answer);
    EXPECT_EQ(mUser.callContextManager(kTwoMebibytes), BR_FAILED_REPLY);
    EXPECT_EQ(mUser.callContextManager(4), BR_REPLY);
}

TEST(RuntimeOverTheDriver, refusesTwoMebibytes) {
    const RuntimeDir directory;
    const Peer peer;
    const Answer answer = call(peer.binder(), kSum, Bytes(kTwoMebibytes));
    EXPECT_EQ(answer.status, android::FAILED_TRANSACTION);
    EXPECT_EQ(answer.bytes, Bytes());
}

TEST(RuntimeOverTheDriver, refusesWhatOthersSendThatIsLargerThanItSendsItself) {
    const RuntimeDir directory; // its service manager uses the runtime
    DriverUser user(kUsualMemory);
    const auto ping = [&user](size_t size) {
        return user.call(0, android::IBinder::PING_TRANSACTION, Bytes(size)).status();
    };
    EXPECT_EQ(ping(kLargestTransaction), android::NO_ERROR);
    EXPECT_EQ(ping(kLargestTransaction + 4), android::FAILED_TRANSACTION);
    EXPECT_EQ(ping(kTwoMebibytes), android::FAILED_TRANSACTION);
    EXPECT_EQ(ping(4), android::NO_ERROR);
}

} // namespace
} // namespace kelutv::test
