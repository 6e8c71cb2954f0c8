#include "client/ClientTest.h"

#include <kelutv/Audio.h>
#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_audio.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

using android::Parcel;
using android::TVBaseClient;

TEST_F(ClientTest, deathIsToldOnceOnStandardError) {
    EXPECT_EQ(link().standardError(), "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [0]\n"
                                      "E/TvbaseClient binderDied() BnTvbaseService died!\n");
}

TEST_F(ClientTest, theClientKeepsProxyAndDeathWatch) {
    EXPECT_NE(TVBaseClient::self()->getBpTvbaseService(), nullptr);
    EXPECT_NE(TVBaseClient::self()->getDeathRecipient(), nullptr);
}

TEST_F(ClientTest, invokeTakesTheWayThroughTheTransport) {
    Parcel request;
    Parcel reply;
    EXPECT_EQ(TVBaseClient::self()->invoke(request, &reply), android::DEAD_OBJECT);
}

TEST_F(ClientTest, commandsFailWithTheLog) {
    EXPECT_EQ(TVBaseClient::self()->exeCmdSet(0x2002, 1), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(linux_tv_Audio_setVolume(0, 20), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(Audio::instance()->getVolume(0), -1);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(ClientTest, aServiceThatComesBackIsNotTaken) {
    TVBaseClient* const client = TVBaseClient::self();
    ScriptedService next;
    next.start();
    FdCapture standardError(STDERR_FILENO);
    EXPECT_EQ(TVBaseClient::self(), client);
    EXPECT_EQ(client->exeCmdGet(0x2003), -1);
    EXPECT_EQ(client->exeCmdSet(0x2002, 1), -1);
    EXPECT_EQ(standardError.take(), "");
    EXPECT_TRUE(next.takeRequests().empty());
}

} // namespace
} // namespace kelutv::test
