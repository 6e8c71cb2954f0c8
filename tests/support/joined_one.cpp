#include "support/JoinedTests.h"

#include <cstdio>
#include <memory>

namespace kelutv::test {
namespace {

class Environment : public ::testing::Environment {
public:
    void SetUp() override { std::puts("set up for one"); }
    void TearDown() override { std::puts("torn down for one"); }
};

[[maybe_unused]] const Environment& environment = addEnvironment(std::make_unique<Environment>());

TEST(Shared, ofOne) {}
TEST(One, first) {}
TEST(One, second) {}

} // namespace
} // namespace kelutv::test
