#include "client/ClientTest.h"
#include "client/EventRecorder.h"

#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_notify.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

using android::Parcel;
using android::TVBaseClient;

TEST_F(ClientTest, fiveTriesAreAnnouncedThenTheFailure) {
    EXPECT_EQ(link().standardError(), "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [0]\n"
                                      "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [1]\n"
                                      "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [2]\n"
                                      "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [3]\n"
                                      "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [4]\n"
                                      "E/TvbaseClient TVBaseClient() Get TVBaseService failed\n");
}

/** The runtime tells of each look-up in vain. */
TEST_F(ClientTest, nothingIsSubscribedNorLoggedByTheClient) {
    EXPECT_EQ(link().log().size(), 5U);
    for (const LogEntry& entry : link().log()) {
        EXPECT_EQ(entry.tag, "kqdroid") << entry;
    }
}

TEST_F(ClientTest, theClientHasNeitherProxyNorDeathWatch) {
    EXPECT_EQ(TVBaseClient::self()->getBpTvbaseService(), nullptr);
    EXPECT_EQ(TVBaseClient::self()->getDeathRecipient(), nullptr);
}

TEST_F(ClientTest, invokeTellsADeadObjectWithoutLogging) {
    Parcel request;
    Parcel reply;
    EXPECT_EQ(TVBaseClient::self()->invoke(request, &reply), -32);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(ClientTest, theClientStaysUnconnectedWhenAServiceComesUp) {
    TVBaseClient* const client = TVBaseClient::self();
    ScriptedService late;
    late.start();
    FdCapture standardError(STDERR_FILENO);
    EXPECT_EQ(TVBaseClient::self(), client);
    EXPECT_EQ(client->exeCmdGet(0x2003), -1);
    EXPECT_EQ(client->exeCmdSet(0x2002, 1), -1);
    EXPECT_EQ(standardError.take(), "");
    EXPECT_TRUE(late.takeRequests().empty());
}

TEST_F(ClientTest, aRegisteredCallbackIsNeverCalled) {
    FdCapture standardOutput(STDOUT_FILENO);
    linux_tv_registerCallbackFunc(EventRecorder::first);
    standardOutput.take();
    EventRecorder events;
    for (const unsigned int module : {0x10000U, 0x30000U, 0x50000U, 0x60000U, 0x80000U, 0x1A0000U, 0x40000U}) {
        events.publish(module + 1, "payload");
    }
    EXPECT_EQ(events.received(), std::vector<Event>());
    linux_tv_unRegisterCallbackFunc(nullptr);
}

} // namespace
} // namespace kelutv::test
