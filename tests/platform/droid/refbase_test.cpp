#include <utils/RefBase.h>

#include <gtest/gtest.h>

#include <set>

namespace kelutv::test {
namespace {

using android::sp;
using android::wp;

class Counted : public android::RefBase {
public:
    explicit Counted(int* destroyed) : mDestroyed(destroyed) {}

    int firstRefs = 0;
    int* lastRefs = nullptr;

protected:
    ~Counted() override { ++*mDestroyed; }
    void onFirstRef() override { ++firstRefs; }
    void onLastStrongRef(const void*) override {
        if (lastRefs != nullptr) {
            ++*lastRefs;
        }
    }

private:
    int* mDestroyed;
};

class Derived : public Counted {
public:
    using Counted::Counted;
    /** One that never gets a reference is deleted like any object. */
    ~Derived() override = default;
};

class RefBaseTest : public ::testing::Test {
protected:
    int destroyed = 0;
};

TEST_F(RefBaseTest, countsEveryStrongPointer) {
    sp<Counted> first = new Counted(&destroyed);
    EXPECT_EQ(first->getStrongCount(), 1);
    {
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is what is counted.
        const sp<Counted> second = first;
        const sp<Counted> third(second.get());
        EXPECT_EQ(first->getStrongCount(), 3);
    }
    EXPECT_EQ(first->getStrongCount(), 1);
    EXPECT_EQ(destroyed, 0);
    first.clear();
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(first, nullptr);
}

TEST_F(RefBaseTest, movesWithoutCounting) {
    sp<Counted> from = new Counted(&destroyed);
    const sp<Counted> to = std::move(from);
    EXPECT_EQ(from, nullptr); // NOLINT(bugprone-use-after-move): null is what a moved-from pointer promises to be.
    EXPECT_EQ(to->getStrongCount(), 1);
}

TEST_F(RefBaseTest, survivesAssignmentToItself) {
    sp<Counted> pointer = new Counted(&destroyed);
    const sp<Counted>& same = pointer;
    pointer = same;
    EXPECT_EQ(destroyed, 0);
    EXPECT_EQ(pointer->getStrongCount(), 1);
}

TEST_F(RefBaseTest, releasesTheObjectThatIsReplaced) {
    sp<Counted> pointer = new Counted(&destroyed);
    pointer = new Counted(&destroyed);
    EXPECT_EQ(destroyed, 1);
    pointer = nullptr;
    EXPECT_EQ(destroyed, 2);
}

TEST_F(RefBaseTest, convertsToTheBase) {
    const sp<Derived> derived = new Derived(&destroyed);
    const sp<Counted> base = derived;
    const sp<android::RefBase> root = derived;
    EXPECT_EQ(base, derived);
    EXPECT_EQ(derived->getStrongCount(), 3);
    EXPECT_EQ(root.get(), derived.get());
}

TEST_F(RefBaseTest, tellsOfFirstAndLastReferenceOnce) {
    int lastRefs = 0;
    sp<Counted> first = new Counted(&destroyed);
    first->lastRefs = &lastRefs;
    sp<Counted> second = first;
    EXPECT_EQ(first->firstRefs, 1);
    first.clear();
    EXPECT_EQ(lastRefs, 0);
    second.clear();
    EXPECT_EQ(lastRefs, 1);
    EXPECT_EQ(destroyed, 1);
}

TEST_F(RefBaseTest, promotesWhileTheObjectLives) {
    sp<Counted> strong = new Counted(&destroyed);
    const wp<Counted> weak = strong;
    EXPECT_EQ(weak.promote(), strong);
    EXPECT_EQ(strong->getStrongCount(), 1);
    strong.clear();
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(weak.promote(), nullptr);
}

TEST_F(RefBaseTest, promotedReferenceKeepsTheObject) {
    sp<Counted> strong = new Counted(&destroyed);
    sp<Counted> promoted = wp<Counted>(strong).promote();
    strong.clear();
    EXPECT_EQ(destroyed, 0);
    promoted.clear();
    EXPECT_EQ(destroyed, 1);
}

TEST_F(RefBaseTest, weakReferencesCompareAfterTheEnd) {
    sp<Derived> one = new Derived(&destroyed);
    const sp<Derived> other = new Derived(&destroyed);
    const wp<Derived> weak = one;
    const wp<Counted> ofBase = one;
    const wp<Derived> weakOther = other;
    const Derived* const address = one.get();
    one.clear();
    EXPECT_TRUE(weak == ofBase);
    EXPECT_TRUE(weak != weakOther);
    EXPECT_EQ(weak.unsafe_get(), address);
    const std::set<wp<Derived>> all{weak, weakOther, wp<Derived>(weak)};
    EXPECT_EQ(all.size(), 2u);
}

TEST_F(RefBaseTest, weakReferenceNeverMatchesANewObjectAtTheOldPlace) {
    sp<Counted> old = new Counted(&destroyed);
    const wp<Counted> weak = old;
    old.clear();
    const sp<Counted> young = new Counted(&destroyed);
    EXPECT_TRUE(weak != wp<Counted>(young));
}

TEST_F(RefBaseTest, countsWeakReferences) {
    const sp<Counted> strong = new Counted(&destroyed);
    const int before = strong->getWeakRefs()->getWeakCount();
    {
        const wp<Counted> first = strong;
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is what is counted.
        const wp<Counted> second = first;
        wp<Counted> third = wp<Counted>(second);
        EXPECT_EQ(strong->getWeakRefs()->getWeakCount(), before + 3);
        third.clear();
        EXPECT_EQ(strong->getWeakRefs()->getWeakCount(), before + 2);
    }
    EXPECT_EQ(strong->getWeakRefs()->getWeakCount(), before);
    EXPECT_EQ(strong->getWeakRefs()->refBase(), strong.get());
}

TEST_F(RefBaseTest, nullReferencesPromoteToNull) {
    const wp<Counted> none;
    const wp<Counted> fromNull(sp<Counted>(nullptr));
    EXPECT_EQ(none.promote(), nullptr);
    EXPECT_EQ(fromNull.promote(), nullptr);
    EXPECT_TRUE(none == fromNull);
}

TEST_F(RefBaseTest, weakReferenceToAnObjectThatNeverHadAStrongOne) {
    auto* const object = new Derived(&destroyed);
    const wp<Derived> weak = object;
    EXPECT_EQ(object->getStrongCount(), 0);
    delete object;
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(weak.promote(), nullptr);
}

TEST_F(RefBaseTest, firstStrongReferenceMayComeFromAPromotion) {
    auto* const object = new Counted(&destroyed);
    const wp<Counted> weak = object;
    {
        const sp<Counted> strong = weak.promote();
        ASSERT_NE(strong, nullptr);
        EXPECT_EQ(strong->firstRefs, 1);
        EXPECT_EQ(strong->getStrongCount(), 1);
    }
    EXPECT_EQ(destroyed, 1);
}

} // namespace
} // namespace kelutv::test
