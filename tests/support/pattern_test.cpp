#include "support/Pattern.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

using Groups = Pattern::Groups;

TEST(Pattern, matchesWholeTexts) {
    const Pattern pattern(R"((\w+)=(\d+))");
    EXPECT_EQ(pattern.match("volume=35"), (Groups{"volume=35", "volume", "35"}));
    EXPECT_EQ(pattern.match(" volume=35"), Groups{});
    EXPECT_TRUE(pattern.matches("a=1"));
    EXPECT_FALSE(pattern.matches("a=1,"));
}

TEST(Pattern, findsEveryPlace) {
    EXPECT_EQ(Pattern("([a-z])1").findAll("a1 b1 c2"), (std::vector<Groups>{{"a1", "a"}, {"b1", "b"}}));
    EXPECT_EQ(Pattern("^x").findAll("xx"), (std::vector<Groups>{{"x"}}));
    EXPECT_TRUE(Pattern("y").findAll("xx").empty());
}

} // namespace
} // namespace kelutv::test
