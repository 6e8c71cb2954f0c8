#include "simulator/Pairs.h"
#include "simulator/Simulator.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelutv::test {

namespace {

const auto& environmentOfPairs = SimulatorEnvironment::install();

std::string pairName(const ::testing::TestParamInfo<const Pair*>& info) { return info.param->name; }

std::string seenOf(void (*call)(Observed&, int)) {
    Observed seen;
    call(seen, 0);
    return seen.text();
}

} // namespace

/** Every set operation of the catalogue with every get operation of the same state. */
class Pairs : public ::testing::TestWithParam<const Pair*> {};

TEST_P(Pairs, GetReturnsWhatWasSet) {
    ASSERT_EQ(linux_tv_Audio_restoreSoundSets(), 0);
    ASSERT_EQ(linux_tv_PCMPlayer_stopPlay(), 0);
    for (const Step& step : GetParam()->steps) {
        EXPECT_EQ(seenOf(step.set).find("result=0;"), 0U);
        EXPECT_EQ(seenOf(GetParam()->get), step.shown);
    }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, Pairs, ::testing::ValuesIn(Offered<Pair>::all<std::vector<const Pair*>>()),
                         pairName);

} // namespace kelutv::test
