#include "support/Capture.h"
#include "support/RuntimeDir.h"

#include <kelutv/link/TVBaseClient.h>

#include <android/log.h>
#include <binder/Binder.h>
#include <binder/IServiceManager.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <string>
#include <vector>

namespace {

using android::IBinder;
using android::Parcel;
using android::sp;
using android::status_t;
using android::String16;

class Service : public android::BBinder {
protected:
    status_t onTransact(uint32_t, const Parcel&, Parcel* reply, uint32_t) override {
        reply->writeInt32(0);
        return reply->writeInt32(7);
    }
};

/** A service manager that has the service from a certain look-up on, and what stood on standard error at each. */
class Registry : public android::IServiceManager {
public:
    sp<IBinder> getService(const String16& name) const override {
        lookUps.emplace_back(name.string(), name.size());
        told.push_back(standardError->take());
        return static_cast<int>(lookUps.size()) >= firstSuccess ? mService : nullptr;
    }
    sp<IBinder> checkService(const String16&) const override {
        ++checks;
        return mService;
    }
    status_t addService(const String16&, const sp<IBinder>&, bool, int) override { return android::INVALID_OPERATION; }
    android::Vector<String16> listServices(int) override { return {}; }

    int firstSuccess = 1;
    kelutv::test::FdCapture* standardError = nullptr;
    mutable std::vector<std::u16string> lookUps;
    mutable std::vector<std::string> told;
    mutable int checks = 0;

private:
    const sp<IBinder> mService = new Service;
};

const sp<Registry>& registry() {
    static const sp<Registry> instance = new Registry;
    return instance;
}

} // namespace

// This program's definition goes before that of the library.
KELUTV_API android::sp<android::IServiceManager> android::defaultServiceManager() { return registry(); }

namespace kelutv::test {
namespace {

using android::TVBaseClient;

const std::vector<std::string> kTryLines{"D/TvbaseClient TVBaseClient() Try get TVBaseService next times [0]\n",
                                         "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [1]\n",
                                         "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [2]\n",
                                         "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [3]\n",
                                         "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [4]\n"};

/** Each test builds the client, so each is run in a program of its own. */
class ServiceSearch : public ::testing::Test {
protected:
    ServiceSearch() { registry()->standardError = &mStandardError; }

    /** Each try is announced before it is made. */
    void expectTries(int tries) {
        EXPECT_EQ(registry()->told, std::vector<std::string>(kTryLines.begin(), kTryLines.begin() + tries));
        EXPECT_EQ(registry()->lookUps, std::vector<std::u16string>(static_cast<std::size_t>(tries), u"TVBaseService"));
        EXPECT_EQ(registry()->checks, 0);
    }

    void expectFoundAtTry(int tries) {
        registry()->firstSuccess = tries;
        TVBaseClient* const client = TVBaseClient::self();
        expectTries(tries);
        EXPECT_EQ(mStandardError.take(), "");
        EXPECT_EQ(mLog.take(), (std::vector<LogEntry>{{ANDROID_LOG_DEBUG, "TVBaseService@Client", "ret = 0"}}));
        EXPECT_EQ(client->exeCmdGet(0x2003), 7);
    }

    RuntimeDir mDirectory;
    LogCapture mLog;
    FdCapture mStandardError{STDERR_FILENO};
};

TEST_F(ServiceSearch, findsAServiceAtTheFirstTry) { expectFoundAtTry(1); }

TEST_F(ServiceSearch, findsAServiceAtTheSecondTry) { expectFoundAtTry(2); }

TEST_F(ServiceSearch, findsAServiceAtTheThirdTry) { expectFoundAtTry(3); }

TEST_F(ServiceSearch, findsAServiceAtTheFourthTry) { expectFoundAtTry(4); }

TEST_F(ServiceSearch, findsAServiceAtTheFifthTry) { expectFoundAtTry(5); }

TEST_F(ServiceSearch, endsAfterTheFifthTry) {
    registry()->firstSuccess = 6;
    TVBaseClient* const client = TVBaseClient::self();
    expectTries(5);
    EXPECT_EQ(mStandardError.take(), "E/TvbaseClient TVBaseClient() Get TVBaseService failed\n");
    EXPECT_EQ(client->exeCmdGet(0x2003), -1);
    expectTries(5);
    EXPECT_TRUE(mLog.take().empty());
}

} // namespace
} // namespace kelutv::test
