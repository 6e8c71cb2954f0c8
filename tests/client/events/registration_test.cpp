#include "client/EventRecorder.h"
#include "support/Capture.h"
#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_notify.h>

#include <android/log.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>

namespace kelutv::test {
namespace {

using android::TVBaseClient;

// Before anything is written: what goes to both outputs is to be seen in the order in which it was written.
[[maybe_unused]] const int kUnbuffered = std::setvbuf(stdout, nullptr, _IONBF, 0);

constexpr char kCallLine[] = "call linux_tv_registerCallbackFunc line 6\n";
constexpr char kTryLine[] = "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [0]\n";

/** The first call of the client is one of the two that register; each test is run in a program of its own. */
class Registration : public ::testing::Test {
protected:
    Registration() {
        mService.start();
        ::dup2(STDOUT_FILENO, STDERR_FILENO);
    }

    void expectConnected() {
        EXPECT_EQ(mLog.take(), (std::vector<LogEntry>{{ANDROID_LOG_DEBUG, "TVBaseService@Client", "ret = 0"}}));
    }

    /** Both outputs, as they were written. */
    std::string printed() { return mOutputs.take(); }

private:
    RuntimeDir mDirectory;
    ScriptedService mService;
    LogCapture mLog;
    FdCapture mStandardError{STDERR_FILENO};
    FdCapture mOutputs{STDOUT_FILENO};
};

TEST_F(Registration, aloneConnectsAndSubscribes) {
    EXPECT_EQ(linux_tv_registerCallbackFunc(EventRecorder::first), 0);
    expectConnected();
    EventRecorder events;
    events.publish(0x60001, "payload");
    EXPECT_EQ(events.received(), (std::vector<Event>{{"first", 0x60001, "payload", nullptr}}));
}

TEST_F(Registration, isTracedBeforeItConnects) {
    EXPECT_EQ(linux_tv_registerCallbackFunc(EventRecorder::first), 0);
    EXPECT_EQ(printed(), std::string(kCallLine) + kTryLine);
}

TEST_F(Registration, takenBackAloneConnectsAndSubscribes) {
    EXPECT_EQ(linux_tv_unRegisterCallbackFunc(EventRecorder::first), 0);
    EXPECT_EQ(printed(), kTryLine);
    expectConnected();
    EventRecorder events;
    events.publish(0x60001, "dropped");
    EXPECT_EQ(events.received(), std::vector<Event>());
    // Stores the callback and does nothing else.
    TVBaseClient::registCallback(reinterpret_cast<TVBaseClient::EventCallback>(EventRecorder::first));
    events.publish(0x60002, "payload");
    EXPECT_EQ(events.received(), (std::vector<Event>{{"first", 0x60002, "payload", nullptr}}));
}

} // namespace
} // namespace kelutv::test
