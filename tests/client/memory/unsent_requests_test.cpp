// A request that memory is missing for is not sent, and the operation fails as it does without a link.

#include "client/ClientTest.h"
#include "client/memory/Operation.h"
#include "client/memory/Starvation.h"

#include <kelutv/Audio.h>
#include <kelutv/Factory.h>

#include <algorithm>

namespace kelutv::test {
namespace {

/** Operations whose request needs memory of its own and nothing else does before. */
std::vector<Operation> longRequests() {
    constexpr std::size_t kHeldByAParcel = 256;
    std::vector<Operation> chosen;
    for (const Operation& operation : operations()) {
        const bool lengthy = operation.requests.front().size() > kHeldByAParcel;
        // UTF-16 is made before the request is written.
        if (lengthy && operation.name != "WideText") {
            chosen.push_back(operation);
        }
    }
    return chosen;
}

/** Without a capture of the log, which needs memory for each line. */
class UnsentRequest : public ::testing::TestWithParam<Operation> {};

TEST_P(UnsentRequest, givesTheFailureValue) {
    link().service().takeRequests();
    link().service().reply(replyOf({0}));
    Seen whole;
    GetParam().call(whole);
    ASSERT_EQ(link().service().takeRequests(), GetParam().requests);

    Seen seen;
    {
        const Starvation starvation(1, Failing::Once);
        GetParam().call(seen);
        ASSERT_TRUE(starvation.felt());
    }
    EXPECT_EQ(seen.words(), GetParam().failures.front());
    EXPECT_EQ(link().service().takeRequests(), std::vector<Bytes>());
}

INSTANTIATE_TEST_SUITE_P(Operations, UnsentRequest, ::testing::ValuesIn(longRequests()),
                         [](const auto& chosen) { return chosen.param.name; });

class UnsentSet : public ClientTest {};

TEST_F(UnsentSet, isLoggedLikeAFailingLink) {
    logged();
    std::array<int, 100> address = hundredNumbers();
    {
        const Starvation starvation(1, Failing::Once);
        Factory::instance()->setMacAddress(address.data(), 100);
    }
    EXPECT_EQ(logged(), kInvokeFailure);
    {
        const Starvation starvation(1, Failing::Once);
        Audio::instance()->setAudioItemStrValue(1, 2, 3, longText());
    }
    EXPECT_EQ(logged(), kInvokeFailure);
}

class UntakenReply : public ClientTest {};

TEST_F(UntakenReply, isAFailure) {
    const auto operations = readerOperations();
    const auto block =
        std::find_if(operations.begin(), operations.end(), [](const auto& one) { return one.name == "Block"; });
    ASSERT_NE(block, operations.end());
    service().reply(block->replies.front().second);
    Seen whole;
    block->call(whole);
    ASSERT_EQ(whole.words(), block->right);
    for (const int allocation : {1, 2}) {
        Seen seen;
        {
            const Starvation starvation(allocation, Failing::Once);
            block->call(seen);
            ASSERT_TRUE(starvation.felt()) << allocation;
        }
        EXPECT_EQ(seen.words(), "-1");
    }
    Seen seen;
    block->call(seen);
    EXPECT_EQ(seen.words(), block->right);
}

} // namespace
} // namespace kelutv::test
