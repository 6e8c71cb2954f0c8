#include "client/ClientTest.h"

#include <kelutv/link/BpTVBaseService.h>
#include <kelutv/link/TVBaseClient.h>

#include <unistd.h>

#include <thread>

namespace kelutv::test {
namespace {

using android::Parcel;
using android::TVBaseClient;

TEST_F(ClientTest, theFirstTryIsAnnouncedAndFindsTheService) {
    EXPECT_EQ(link().standardError(), "D/TvbaseClient TVBaseClient() Try get TVBaseService next times [0]\n");
}

TEST_F(ClientTest, theSubscriptionsAreLogged) {
    EXPECT_EQ(link().log(), (std::vector<LogEntry>{{ANDROID_LOG_DEBUG, "TVBaseService@Client", "ret = 0"}}));
}

TEST_F(ClientTest, thereIsOneClientAndItConnectsOnce) {
    FdCapture standardError(STDERR_FILENO);
    TVBaseClient* const client = TVBaseClient::self();
    EXPECT_EQ(client->exeCmdSet(1), 0);
    EXPECT_EQ(TVBaseClient::self(), client);
    EXPECT_EQ(standardError.take(), "");
}

TEST_F(ClientTest, proxyAndDeathWatchAreTheClientsOwn) {
    TVBaseClient* const client = TVBaseClient::self();
    EXPECT_NE(client->getBpTvbaseService(), nullptr);
    EXPECT_NE(client->getDeathRecipient(), nullptr);
    EXPECT_EQ(&client->getBpTvbaseService(), &client->getBpTvbaseService());
    EXPECT_EQ(&client->getDeathRecipient(), &client->getDeathRecipient());
    EXPECT_NE(dynamic_cast<android::BpTVBaseService*>(client->getBpTvbaseService().get()), nullptr);
}

TEST_F(ClientTest, invokeSendsTheRequestAsItIs) {
    answer({4, 5});
    Parcel request;
    Parcel reply;
    request.writeInt32(77);
    EXPECT_EQ(TVBaseClient::self()->invoke(request, &reply), android::NO_ERROR);
    EXPECT_EQ(sent(), only(replyOf({77})));
    EXPECT_EQ(reply.readInt32(), 4);
    EXPECT_EQ(reply.readInt32(), 5);
}

TEST_F(ClientTest, invokeReturnsTheTransportsStatus) {
    service().replyStatus(android::BAD_TYPE);
    const Parcel request;
    Parcel reply;
    EXPECT_EQ(TVBaseClient::self()->invoke(request, &reply), android::BAD_TYPE);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(ClientTest, twoRequestsMayBeUnderWayAtOnce) {
    answer({0, 6});
    service().hangNext();
    int held = 0;
    std::thread caller([&] { held = TVBaseClient::self()->exeCmdGet(0x1111); });
    ASSERT_TRUE(service().waitUntilHanging());
    EXPECT_EQ(TVBaseClient::self()->exeCmdGet(0x2222), 6);
    service().release();
    caller.join();
    EXPECT_EQ(held, 6);
}

} // namespace
} // namespace kelutv::test
