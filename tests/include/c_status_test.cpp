#include "c_status.h"

#include <support/Link.h>
#include <support/Wire.h>

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

LinkEnvironment& link = LinkEnvironment::install();

TEST(CStatus, ofARefusalIsMinusOne) {
    link.service().reply(replyOf({1, 0}));
    EXPECT_TRUE(resultEqualsMinusOne());
    EXPECT_TRUE(storedResultEqualsMinusOne());
    EXPECT_TRUE(resultAsIntIsBelowZero());
}

TEST(CStatus, ofAnAnswerIsNot) {
    link.service().reply(replyOf({0, 1}));
    EXPECT_FALSE(resultEqualsMinusOne());
    EXPECT_FALSE(storedResultEqualsMinusOne());
    EXPECT_FALSE(resultAsIntIsBelowZero());
}

} // namespace
} // namespace kelutv::test
