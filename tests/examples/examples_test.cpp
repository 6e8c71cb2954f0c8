#include "simulator/Simulator.h"
#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::test {

namespace {

constexpr char kRegistering[] = "call linux_tv_registerCallbackFunc line 6\n";

/** Each example program, on a television of its own. */
class Examples : public ::testing::TestWithParam<const char*> {
protected:
    static ChildProcess::Options captured() {
        ChildProcess::Options options;
        options.captureOutput = true;
        options.captureError = true;
        return options;
    }

    /** The program's output, with its exit code as the last line. */
    static std::string run() {
        ChildProcess example({GetParam()}, captured());
        const auto code = example.exitCode();
        return example.output().text() + "exit code " + (code ? std::to_string(*code) : "missing") + "\n";
    }

private:
    const RuntimeDir mRuntimeDir;
};

TEST_P(Examples, ChangeTheVolumeAndAreToldOfIt) {
    const Simulator simulator;
    EXPECT_EQ(run(), std::string("the speaker's volume is 20\n") + kRegistering + "setting it to 35\n" +
                         "event 0x60001 with 8 bytes\n" + "the speaker's volume is 35\n" + "exit code 0\n");
}

TEST_P(Examples, GoDownFromALoudVolume) {
    const Simulator simulator;
    ASSERT_EQ(SimulatorEnvironment::transact(requestOf(0x2008, {0, 60})), replyOf({0}));
    EXPECT_EQ(run(), std::string("the speaker's volume is 60\n") + kRegistering + "setting it to 45\n" +
                         "event 0x60001 with 8 bytes\n" + "the speaker's volume is 45\n" + "exit code 0\n");
}

TEST_P(Examples, SayThatTheServiceIsMissing) {
    ChildProcess example({GetParam()}, captured());
    EXPECT_EQ(example.exitCode(), 1);
    EXPECT_EQ(example.output().text(), "");
    EXPECT_NE(example.error().text().find("volume: no answer from the TV base service; is it running?"),
              std::string::npos)
        << example.error().text();
}

std::string languageName(const ::testing::TestParamInfo<const char*>& example) {
    return example.index == 0 ? "C" : "Cxx";
}

INSTANTIATE_TEST_SUITE_P(Volume, Examples, ::testing::Values(KELUTV_EXAMPLE_C, KELUTV_EXAMPLE_CPP), languageName);

} // namespace

} // namespace kelutv::test
