#include "platform/droid/ProcessCounts.h"
#include "support/RuntimeDir.h"
#include "torture/Report.h"
#include "torture/Size.h"
#include "torture/soak/Listener.h"

#include <gtest/gtest.h>

#include <keluem/publisher.h>

#include <csignal>
#include <filesystem>

namespace kelutv::test {
namespace {

using namespace std::chrono_literals;

/** As many events as no listener that runs misses. */
constexpr long kBatch = 256;
constexpr auto kSlowWork = 50us;
constexpr auto kLongPatience = 60s;

/** A process that publishes as many events as the test says. */
class PublisherProcess {
public:
    PublisherProcess() : mProcess([this] { live(); }) {}

    pid_t pid() const { return mProcess.pid(); }

    /** Publishes events up to this number and returns. */
    void publishTo(long last) {
        mOrders->upTo = last;
        ASSERT_TRUE(eventually([&] { return mOrders->published == last; }, kLongPatience)) << mProcess.text();
        ASSERT_EQ(mOrders->failures, 0);
    }

    long dropped() const { return mOrders->dropped; }

private:
    struct Orders {
        std::atomic<long> upTo{0};
        std::atomic<long> published{0};
        std::atomic<long> dropped{0};
        std::atomic<long> failures{0};
    };

    void live() {
        keluem::Publisher publisher;
        for (;;) {
            const auto hasMore = [&] {
                mOrders->dropped = static_cast<long>(publisher.droppedEvents());
                return mOrders->upTo > mOrders->published;
            };
            eventually(hasMore, 1h);
            for (long number = mOrders->published + 1; number <= mOrders->upTo; ++number) {
                mOrders->failures += publisher.publish(kSoakModule + 1, &number, sizeof number) != 0 ? 1 : 0;
                mOrders->dropped = static_cast<long>(publisher.droppedEvents());
                mOrders->published = number;
            }
        }
    }

    Shared<Orders> mOrders;
    ForkedProcess mProcess;
};

std::size_t subscribersIn(const RuntimeDir& directory) {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(directory.path() + "/events")) {
        ++count;
    }
    return count;
}

void expectUpTo(const Listener& listener, long number) {
    EXPECT_TRUE(eventually([&] { return listener.last() == number; }, kLongPatience)) << listener.last();
    EXPECT_EQ(listener.wrong(), 0);
}

/** What each of four listeners misses is what the publisher says it has dropped. */
TEST(SoakEvents, everyListenersCountIsExplained) {
    const RuntimeDir runtimeDir;
    const long events = ofSize(4, 200, 4000) * kBatch;
    PublisherProcess publisher;
    publisher.publishTo(1);
    const ProcessCounts before = settledCountsOf(publisher.pid());

    Listener fast;
    Listener slow(kSlowWork);
    Listener stopped;
    auto restarted = std::make_unique<Listener>();
    stopped.signal(SIGSTOP);
    const long first = 2;
    long restartedFirst = first;
    int restarts = 0;
    for (long last = 1 + kBatch; last <= 1 + events; last += kBatch) {
        publisher.publishTo(last);
        expectUpTo(fast, last);
        expectUpTo(*restarted, last);
        if ((last / kBatch) % 16 == 2) {
            ASSERT_EQ(restarted->first(), restartedFirst);
            ASSERT_EQ(restarted->missing(), 0);
            restarted->kill();
            restarted = std::make_unique<Listener>();
            restartedFirst = last + 1;
            ++restarts;
        }
    }
    stopped.signal(SIGCONT);
    for (Listener* listener : {&fast, &slow, &stopped}) {
        expectUpTo(*listener, 1 + events);
    }
    EXPECT_EQ(fast.received(), events);
    // One that was stopped before it said what it wants says so now.
    const long missed = (events - slow.received()) + (events - stopped.received());
    EXPECT_TRUE(eventually([&] { return publisher.dropped() == missed; })) << publisher.dropped() << " of " << missed;
    report("%ld events: fast %ld, slow %ld, stopped %ld, restarted %d times; %ld dropped", events, fast.received(),
           slow.received(), stopped.received(), restarts, publisher.dropped());

    for (Listener* listener : {&fast, &slow, &stopped, restarted.get()}) {
        EXPECT_TRUE(listener->finish());
    }
    EXPECT_TRUE(fallsTo(before, publisher.pid())) << before << " before, " << countsOf(publisher.pid());
    EXPECT_TRUE(eventually([&] { return subscribersIn(runtimeDir) == 0; })) << subscribersIn(runtimeDir);
}

} // namespace
} // namespace kelutv::test
