#include "client/wire/Observed.h"

#include <gtest/gtest.h>

#include <cstring>

namespace kelutv::test {

namespace {

template <typename Value> std::string shown(const Value& value) {
    Observed observed;
    observed.add("value", value);
    return observed.text();
}

} // namespace

TEST(Observed, showsNumbersAndListsUnderTheirLabels) {
    Observed observed;
    observed.add("result", -7);
    observed.add("mask", 4000000000U);
    observed.add("gain", 2.25);
    observed.add("kinds", std::list<int>{7, 7, 8});
    observed.add("names", std::list<std::string>{"alpha", ""});
    EXPECT_EQ(observed.text(), "result=-7;mask=4000000000;gain=2.25;kinds=[7*2 8];names=['alpha' ''];");
}

TEST(Observed, showsABufferInRuns) {
    IntBuffer numbers;
    numbers.values[0] = 71;
    EXPECT_EQ(shown(numbers), "value=[71 1515870810*255];");
    DoubleBuffer reals;
    reals.values[255] = 0.1;
    EXPECT_EQ(shown(reals), "value=[-0.5*255 0.10000000000000001];");
}

TEST(Observed, tellsATextWithTerminatorFromOneWithout) {
    CharBuffer buffer;
    EXPECT_EQ(shown(buffer), "value=x*255;");
    std::memcpy(buffer.values, "error", 5);
    EXPECT_EQ(shown(buffer), "value=errorx*250;");
    std::memcpy(buffer.values, "error", 6);
    EXPECT_EQ(shown(buffer), "value=error;");
}

TEST(Observed, seesWhatIsWrittenBehindATerminator) {
    CharBuffer buffer("alpha");
    EXPECT_EQ(shown(buffer), "value=alpha;");
    buffer.values[6] = '\0';
    EXPECT_EQ(shown(buffer), "value=alpha+;");
}

TEST(Observed, countsUpInBlocksThatAreSent) {
    EXPECT_EQ(IntBuffer(1001).values[255], 1256);
    EXPECT_EQ(DoubleBuffer(1.25).values[2], 3.25);
    EXPECT_EQ(ByteBuffer(1).values[255], 0);
}

TEST(Observed, forgetsWhatItHasGathered) {
    Observed observed;
    observed.add("result", 1);
    observed.clear();
    EXPECT_EQ(observed.text(), "");
}

} // namespace kelutv::test
