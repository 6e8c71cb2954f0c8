#include "simulator/Pairs.h"
#include "simulator/Simulator.h"

#include <kelutv/kelutv.h>

namespace kelutv::test {

namespace {

const auto& environment = SimulatorEnvironment::install();

} // namespace

std::string pairName(const ::testing::TestParamInfo<Pair>& info) { return info.param.name; }

void PrintTo(const Pair& pair, std::ostream* out) { *out << pair.name; }

TEST_P(Pairs, GetReturnsWhatWasSet) {
    ASSERT_EQ(linux_tv_Audio_restoreSoundSets(), 0);
    ASSERT_EQ(linux_tv_PCMPlayer_stopPlay(), 0);
    for (const Step& step : GetParam().steps) {
        EXPECT_EQ(step.set().find("result=0;"), 0U);
        EXPECT_EQ(GetParam().get(), step.shown);
    }
}

} // namespace kelutv::test
