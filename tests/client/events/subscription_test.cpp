#include "support/Capture.h"
#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <kelutv/link/DeathNotifier.h>
#include <kelutv/link/TVBaseClient.h>

#include <android/log.h>
#include <gtest/gtest.h>
#include <keluem/emal.h>
#include <unistd.h>

#include <functional>
#include <mutex>
#include <vector>

namespace {

using Listener = void (*)(unsigned int, void*, unsigned int, void*);

/** An event manager that only notes its calls; this program's definitions go before those of the library. */
struct EventManager {
    std::mutex mutex;
    std::vector<unsigned int> added;
    std::vector<Listener> listeners;
    std::vector<unsigned int> removed;
    std::vector<int> results;
    std::function<void()> onFirstAdd = [] {};

    std::size_t removals() {
        const std::lock_guard lock(mutex);
        return removed.size();
    }
};

EventManager gEventManager;
std::function<void()> gOnFound = [] {};

} // namespace

extern "C" int EMAL_AddListener(unsigned int module, Listener listener) {
    const std::size_t place = gEventManager.added.size();
    gEventManager.added.push_back(module);
    gEventManager.listeners.push_back(listener);
    if (place == 0) {
        gEventManager.onFirstAdd();
    }
    return place < gEventManager.results.size() ? gEventManager.results[place] : 0;
}

extern "C" int EMAL_RemoveListener(unsigned int module) {
    const std::lock_guard lock(gEventManager.mutex);
    gEventManager.removed.push_back(module);
    return -1;
}

// The client makes its death watch between finding the service and linking to its death.
DeathNotifier::DeathNotifier() { gOnFound(); }

namespace kelutv::test {
namespace {

using android::TVBaseClient;

const std::vector<unsigned int> kModules{0x10000, 0x30000, 0x50000, 0x60000, 0x80000, 0x1A0000, 0x40000};
constexpr char kTryLine[] = "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [0]\n";
constexpr char kDeathLine[] = "E/TvbaseClient binderDied() BnTvbaseService died!\n";

/** Each test builds the client, so each is run in a program of its own. */
class Subscription : public ::testing::Test {
protected:
    RuntimeDir directory;
    ScriptedService service;
    LogCapture log;
    FdCapture standardError{STDERR_FILENO};
};

TEST_F(Subscription, isToSevenModulesInOrder) {
    service.start();
    TVBaseClient::self();
    EXPECT_EQ(gEventManager.added, kModules);
    EXPECT_EQ(gEventManager.listeners, std::vector<Listener>(7, &TVBaseClient::eventNotify));
    EXPECT_EQ(log.take(), (std::vector<LogEntry>{{ANDROID_LOG_DEBUG, "TVBaseService@Client", "ret = 0"}}));
    EXPECT_EQ(gEventManager.removals(), 0U);
}

TEST_F(Subscription, endsInTheSameOrderOnDeath) {
    service.start();
    TVBaseClient::self();
    service.kill();
    ASSERT_TRUE(eventually([] { return gEventManager.removals() == 7; }));
    EXPECT_EQ(gEventManager.removed, kModules);
    EXPECT_EQ(standardError.take(), std::string(kTryLine) + kDeathLine);
}

TEST_F(Subscription, resultsAreOredIntoOneWordAndOnlyLogged) {
    service.start();
    service.reply(replyOf({0, 3}));
    gEventManager.results = {0, 1, 0, 4, 1, 0, 16};
    EXPECT_EQ(TVBaseClient::self()->exeCmdGet(0x2003), 3);
    EXPECT_EQ(gEventManager.added, kModules);
    EXPECT_EQ(log.take(), (std::vector<LogEntry>{{ANDROID_LOG_DEBUG, "TVBaseService@Client", "ret = 21"}}));
}

TEST_F(Subscription, isNotMadeWithoutAService) {
    EXPECT_EQ(TVBaseClient::self()->exeCmdGet(0x2003), -1);
    EXPECT_TRUE(gEventManager.added.empty());
    for (const LogEntry& entry : log.take()) {
        EXPECT_EQ(entry.tag, "kqdroid") << entry;
    }
}

TEST_F(Subscription, isCompletedWhenTheServiceDiesMeanwhile) {
    service.start();
    gEventManager.onFirstAdd = [this] { service.kill(); };
    TVBaseClient* const client = TVBaseClient::self();
    EXPECT_EQ(gEventManager.added, kModules);
    EXPECT_EQ(client->exeCmdSet(0x2002, 1), -1);
    ASSERT_TRUE(eventually([] { return gEventManager.removals() == 7; }));
    EXPECT_EQ(standardError.take(), std::string(kTryLine) + kDeathLine);
}

TEST_F(Subscription, isMadeForAServiceThatIsGoneAsSoonAsItIsFound) {
    service.start();
    gOnFound = [this] { service.kill(); };
    TVBaseClient* const client = TVBaseClient::self();
    EXPECT_EQ(gEventManager.added, kModules);
    EXPECT_EQ(client->exeCmdSet(0x2002, 1), -1);
    EXPECT_EQ(client->exeCmdGet(0x2003), -1);
    EXPECT_NE(client->getBpTvbaseService(), nullptr);
    EXPECT_EQ(TVBaseClient::self(), client);
}

} // namespace
} // namespace kelutv::test
