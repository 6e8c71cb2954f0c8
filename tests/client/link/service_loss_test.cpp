#include "client/ClientTest.h"

#include <kelutv/link/TVBaseClient.h>

#include <unistd.h>

#include <future>
#include <thread>

namespace kelutv::test {
namespace {

using android::TVBaseClient;

constexpr char kDeathLine[] = "E/TvbaseClient binderDied() BnTvbaseService died!\n";

/** Each test ends the client's one service, so each is run in a program of its own. */
class ServiceLoss : public ClientTest {
protected:
    void expectToldOnce() {
        EXPECT_TRUE(standardError.waitFor(kDeathLine));
        EXPECT_EQ(TVBaseClient::self()->exeCmdSet(2), -1);
        EXPECT_EQ(standardError.take(), kDeathLine);
    }

    FdCapture standardError{STDERR_FILENO};
};

TEST_F(ServiceLoss, endsARequestUnderWay) {
    service().hangNext();
    int result = 0;
    std::thread caller([&] { result = TVBaseClient::self()->exeCmdSet(1); });
    EXPECT_TRUE(service().waitUntilHanging());
    service().kill();
    caller.join();
    EXPECT_EQ(result, -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    expectToldOnce();
}

TEST_F(ServiceLoss, beforeTheReplyIsAFailure) {
    service().exitBeforeReply();
    EXPECT_EQ(TVBaseClient::self()->exeCmdGet(1), -1);
    expectToldOnce();
}

TEST_F(ServiceLoss, afterTheReplyDoesNotSpoilIt) {
    answer({0, 12});
    service().exitAfterReply();
    EXPECT_EQ(TVBaseClient::self()->exeCmdGet(1), 12);
    EXPECT_TRUE(service().waitUntilGone());
    expectToldOnce();
}

/** The handler takes the watch back, so a death that follows it is not told again. */
TEST_F(ServiceLoss, isNotToldAfterTheWatchWasTakenBack) {
    const android::sp<android::IBinder::DeathRecipient> watch = TVBaseClient::self()->getDeathRecipient();
    watch->binderDied(android::wp<android::IBinder>());
    EXPECT_EQ(standardError.take(), kDeathLine);

    const android::sp<android::IBinder> binder =
        android::IInterface::asBinder(TVBaseClient::self()->getBpTvbaseService());
    EXPECT_EQ(binder->unlinkToDeath(watch), android::NAME_NOT_FOUND);

    EXPECT_EQ(TVBaseClient::self()->exeCmdSet(1), 0);
    class SecondWatch : public android::IBinder::DeathRecipient {
    public:
        void binderDied(const android::wp<android::IBinder>&) override { told.set_value(); }
        std::promise<void> told;
    };
    const android::sp<SecondWatch> second = new SecondWatch;
    ASSERT_EQ(binder->linkToDeath(second), android::NO_ERROR);
    service().kill();
    ASSERT_EQ(second->told.get_future().wait_for(kPatience), std::future_status::ready);
    EXPECT_EQ(standardError.take(), "");
}

} // namespace
} // namespace kelutv::test
