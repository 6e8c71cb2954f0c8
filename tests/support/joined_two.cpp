#include "support/JoinedTests.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

TEST(Shared, ofTwo) {}

class Two : public ::testing::TestWithParam<int> {};

TEST_P(Two, each) {}
INSTANTIATE_TEST_SUITE_P(Numbers, Two, ::testing::Values(1, 2));

} // namespace
} // namespace kelutv::test

int main(int argc, char** argv) {
    return kelutv::test::runJoinedTests(
        argc, argv, {{"one", "tests/support/joined_one.cpp"}, {"two", "tests/support/joined_two.cpp"}});
}
