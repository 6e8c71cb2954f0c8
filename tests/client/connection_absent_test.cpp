#include "ClientTest.h"

#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_notify.h>

#include <keluem/publisher.h>

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

TEST_F(ClientTest, nothingIsSubscribedNorLogged) { EXPECT_EQ(link().log(), kNothingLogged); }

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
    static int calls = 0;
    linux_tv_registerCallbackFunc([](int, void*, unsigned int, void*) { ++calls; });
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(0x60001, nullptr, 0), 0);
    linux_tv_unRegisterCallbackFunc(nullptr);
    EXPECT_EQ(calls, 0);
    standardOutput.take();
}

} // namespace
} // namespace kelutv::test
