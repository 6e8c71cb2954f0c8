#include "KernelTest.h"

#include "support/Capture.h"
#include "support/Deadline.h"

#include <cerrno>
#include <functional>
#include <future>
#include <memory>
#include <thread>
#include <vector>

namespace kelutv::test {
namespace {

using android::DEAD_OBJECT;
using android::FAILED_TRANSACTION;
using android::NO_ERROR;
using android::Parcel;
using Buffers = std::vector<binder_uintptr_t>;
using Codes = std::vector<uint32_t>;

/** When the buffers of replies go back to the driver. */
class KernelBuffers : public KernelTest {
protected:
    /** Lets the next call have a reply of so many bytes. */
    binder_uintptr_t answer(size_t size) {
        const binder_transaction_data message = driver.message(Bytes(size));
        driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, message)});
        return message.data.ptr.buffer;
    }

    /** Makes calls whose replies live together; their buffers. */
    Buffers keepReplies(size_t count, size_t size) {
        std::vector<std::unique_ptr<Parcel>> replies;
        Buffers buffers;
        for (size_t made = 0; made < count; ++made) {
            buffers.push_back(answer(size));
            EXPECT_EQ(call(1, {}, replies.emplace_back(std::make_unique<Parcel>()).get()), NO_ERROR);
        }
        driver.takeSent();
        return buffers;
    }

    /** The buffers that have been freed since the last take. */
    Buffers takeFreed() {
        Buffers freed;
        for (const Command& sent : driver.takeSent()) {
            if (sent.code == BC_FREE_BUFFER) {
                freed.push_back(sent.as<binder_uintptr_t>());
            }
        }
        return freed;
    }

    void callTheDead() {
        driver.say({command(BR_DEAD_REPLY)});
        EXPECT_EQ(call(2, {}, nullptr), DEAD_OBJECT);
    }
};

void onAThread(const std::function<void()>& body) { std::thread(body).join(); }

TEST_F(KernelBuffers, goBackWithTheThreadsNextCall) {
    const binder_uintptr_t buffer = answer(4);
    {
        Parcel reply;
        ASSERT_EQ(call(1, {}, &reply), NO_ERROR);
        driver.takeSent();
    }
    EXPECT_EQ(driver.takeSentCodes(), Codes{});
    callTheDead();
    const std::vector<Command> sent = driver.takeSent();
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[0].code, static_cast<uint32_t>(BC_TRANSACTION));
    EXPECT_EQ(sent[1].code, static_cast<uint32_t>(BC_FREE_BUFFER));
    EXPECT_EQ(sent[1].as<binder_uintptr_t>(), buffer);
}

TEST_F(KernelBuffers, aCallIsOneExchange) {
    static constexpr int kCalls = 100;
    onAThread([this] {
        for (int made = 0; made < kCalls; ++made) {
            answer(4);
            Parcel reply;
            EXPECT_EQ(call(1, {}, &reply), NO_ERROR);
        }
        EXPECT_EQ(driver.exchanges(), kCalls);
    });
    EXPECT_EQ(driver.exchanges(), kCalls + 1) << "and one when the thread ends";
    EXPECT_EQ(takeFreed().size(), size_t{kCalls});
}

TEST_F(KernelBuffers, ofUnwantedRepliesAndStatusesWaitTheSame) {
    onAThread([this] {
        answer(4);
        EXPECT_EQ(call(1, {}, nullptr), NO_ERROR);
        binder_transaction_data status = driver.message(replyOf({-22}));
        status.flags = TF_STATUS_CODE;
        driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, status)});
        EXPECT_EQ(call(1, {}, nullptr), -22);
        EXPECT_EQ(driver.takeSentCodes(), (Codes{BC_TRANSACTION, BC_TRANSACTION, BC_FREE_BUFFER}));
    });
    EXPECT_EQ(driver.takeSentCodes(), Codes{BC_FREE_BUFFER});
}

TEST_F(KernelBuffers, goBackWhenTheThreadEnds) {
    Buffers buffers;
    onAThread([&] { buffers = keepReplies(3, 4); });
    EXPECT_EQ(takeFreed(), buffers);
}

TEST_F(KernelBuffers, goBackWhereTheirParcelsEnd) {
    auto reply = std::make_shared<Parcel>();
    const binder_uintptr_t buffer = answer(4);
    ASSERT_EQ(call(1, {}, reply.get()), NO_ERROR);
    driver.takeSent();
    onAThread([&] { reply.reset(); });
    EXPECT_EQ(takeFreed(), Buffers{buffer});
}

TEST_F(KernelBuffers, ofParcelsThatAreWrittenToOrEmptiedGoBackToo) {
    onAThread([this] {
        Parcel written;
        Parcel emptied;
        const Buffers buffers{answer(4), answer(4)};
        ASSERT_EQ(call(1, {}, &written), NO_ERROR);
        ASSERT_EQ(call(1, {}, &emptied), NO_ERROR);
        EXPECT_EQ(written.writeInt32(9), NO_ERROR);
        emptied.freeData();
        driver.takeSent();
        callTheDead();
        EXPECT_EQ(takeFreed(), buffers);
    });
}

TEST_F(KernelBuffers, ofOneThreadAreKeptUpToEight) {
    onAThread([this] {
        keepReplies(8, 4);
        EXPECT_EQ(takeFreed(), Buffers{});
    });
    EXPECT_EQ(takeFreed().size(), 8u);
    onAThread([this] {
        keepReplies(9, 4);
        EXPECT_EQ(takeFreed().size(), 9u);
    });
    EXPECT_EQ(takeFreed(), Buffers{});
}

TEST_F(KernelBuffers, ofAllThreadsAreKeptUpToAHundredAndTwentyEight) {
    std::promise<void> enough;
    const std::shared_future<void> end = enough.get_future().share();
    std::vector<std::thread> threads;
    for (int started = 0; started < 128 / 8; ++started) {
        std::promise<void> kept;
        threads.emplace_back([&] {
            keepReplies(8, 4);
            kept.set_value();
            end.wait_for(kPatience);
        });
        ASSERT_EQ(kept.get_future().wait_for(kPatience), std::future_status::ready);
    }
    EXPECT_EQ(takeFreed(), Buffers{});
    onAThread([this] {
        keepReplies(1, 4);
        EXPECT_EQ(takeFreed().size(), 1u);
    });
    enough.set_value();
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(takeFreed().size(), 128u);
    onAThread([this] {
        keepReplies(1, 4);
        EXPECT_EQ(takeFreed(), Buffers{}) << "there is room again";
    });
}

TEST_F(KernelBuffers, thatAreLargeGoBackAtOnce) {
    onAThread([this] {
        keepReplies(1, 2048);
        EXPECT_EQ(takeFreed(), Buffers{});
        const Buffers buffers = keepReplies(1, 2049);
        EXPECT_EQ(takeFreed(), buffers);
    });
}

TEST_F(KernelBuffers, goBackLaterWhenTheDriverDoesNotTakeThemNow) {
    Buffers buffers;
    onAThread([&] {
        buffers = keepReplies(1, 4);
        driver.failNext(-ENOMEM);
    });
    EXPECT_EQ(driver.takeSentCodes(), Codes{});
    callTheDead();
    EXPECT_EQ(takeFreed(), buffers);
}

TEST_F(KernelBuffers, goBackThoughTheCallIsNotTaken) {
    const LogCapture log;
    onAThread([this] {
        const Buffers buffers = keepReplies(1, 4);
        driver.failNext(-ENOMEM);
        EXPECT_EQ(call(2, {}, nullptr), FAILED_TRANSACTION);
        EXPECT_EQ(driver.takeSentCodes(), Codes{BC_FREE_BUFFER}) << "the call is given up, what it carried is not";
    });
}

TEST_F(KernelBuffers, goBackThoughTheDriverStopsAtTheCallThatTheyGoWith) {
    onAThread([this] {
        const Buffers buffers = keepReplies(2, 4);
        const int before = driver.exchanges();
        driver.takeOneCommandNext();
        driver.say({command(BR_FAILED_REPLY)});
        EXPECT_EQ(call(2, {}, nullptr), FAILED_TRANSACTION);
        EXPECT_EQ(driver.exchanges() - before, 2);
        const std::vector<Command> sent = driver.takeSent();
        ASSERT_EQ(sent.size(), 3u);
        EXPECT_EQ(sent[0].code, static_cast<uint32_t>(BC_TRANSACTION));
        for (const size_t at : {1u, 2u}) {
            EXPECT_EQ(sent[at].code, static_cast<uint32_t>(BC_FREE_BUFFER));
            EXPECT_EQ(sent[at].as<binder_uintptr_t>(), buffers[at - 1]);
        }
    });
}

} // namespace
} // namespace kelutv::test
