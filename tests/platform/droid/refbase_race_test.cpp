#include "StartLine.h"

#include <utils/RefBase.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace kelutv::test {
namespace {

using android::sp;
using android::wp;

constexpr int kThreads = 4;
constexpr int kRounds = 500;
constexpr int kPromotions = 20;
constexpr int kAlive = 0x11FE;

class Watched : public android::RefBase {
public:
    explicit Watched(std::atomic<int>* destroyed) : mDestroyed(destroyed) {}
    int mark() const { return mMark; }

protected:
    ~Watched() override {
        mMark = 0;
        ++*mDestroyed;
    }

private:
    int mMark = kAlive;
    std::atomic<int>* mDestroyed;
};

TEST(RefBaseRace, promotionEitherHoldsALivingObjectOrFails) {
    for (int round = 0; round < kRounds; ++round) {
        std::atomic<int> destroyed{0};
        std::atomic<int> dead{0};
        sp<Watched> strong = new Watched(&destroyed);
        const wp<Watched> weak = strong;
        StartLine line(kThreads + 1);
        std::vector<std::thread> promoters;
        for (int i = 0; i < kThreads; ++i) {
            promoters.emplace_back([&] {
                line.wait();
                for (int tries = 0; tries < kPromotions; ++tries) {
                    const sp<Watched> promoted = weak.promote();
                    dead += promoted == nullptr || promoted->mark() == kAlive ? 0 : 1;
                }
            });
        }
        line.wait();
        strong.clear();
        for (std::thread& promoter : promoters) {
            promoter.join();
        }
        ASSERT_EQ(destroyed, 1) << "round " << round;
        ASSERT_EQ(dead, 0) << "round " << round;
        ASSERT_EQ(weak.promote(), nullptr);
    }
}

TEST(RefBaseRace, copiesFromManyThreadsEndInOneDestruction) {
    std::atomic<int> destroyed{0};
    sp<Watched> strong = new Watched(&destroyed);
    StartLine line(kThreads);
    std::vector<std::thread> copiers;
    for (int i = 0; i < kThreads; ++i) {
        copiers.emplace_back([&line, mine = strong]() mutable {
            line.wait();
            for (int round = 0; round < kRounds; ++round) {
                // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is what is tested.
                const sp<Watched> copy = mine;
                const wp<Watched> weak = copy;
                EXPECT_EQ(weak.promote(), mine);
            }
            mine.clear();
        });
    }
    strong.clear();
    for (std::thread& copier : copiers) {
        copier.join();
    }
    EXPECT_EQ(destroyed, 1);
}

TEST(RefBaseRace, weakReferencesMayOutliveTheObjectOnOtherThreads) {
    for (int round = 0; round < kRounds; ++round) {
        std::atomic<int> destroyed{0};
        sp<Watched> strong = new Watched(&destroyed);
        StartLine line(2);
        std::thread holder([&line, weak = wp<Watched>(strong)]() mutable {
            line.wait();
            weak.clear();
        });
        line.wait();
        strong.clear();
        holder.join();
        ASSERT_EQ(destroyed, 1);
    }
}

} // namespace
} // namespace kelutv::test
